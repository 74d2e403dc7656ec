#include "ui/Keys.h"

#include <QOperatingSystemVersion>
#include <QRegularExpression>

namespace pryvane::ui {

KeyWords hostsKeyWords()
{
    return QOperatingSystemVersion::currentType() == QOperatingSystemVersion::MacOS
               ? KeyWords::Mac
               : KeyWords::Plain;
}

QString withKeys(QString text, KeyWords words)
{
    if (words == KeyWords::Plain)
        return text;
    static const QRegularExpression help(QStringLiteral("\\bF1\\b"));
    return text.replace(QLatin1String("Ctrl+"), QStringLiteral("⌘"))
        .replace(QLatin1String("Shift+"), QStringLiteral("⇧"))
        .replace(QLatin1String("Alt+"), QStringLiteral("⌥"))
        .replace(help, QStringLiteral("⌘?"));
}

} // namespace pryvane::ui
