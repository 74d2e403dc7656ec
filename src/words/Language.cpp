#include "words/Language.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace pryvane::ui {

namespace {

bool s_isTranslated = false;

/// Installs a file of translations; false where there is none.
bool install(QCoreApplication& application, const QString& file)
{
    auto* translator = new QTranslator(&application);
    if (translator->load(file) && QCoreApplication::installTranslator(translator))
        return true;
    delete translator;
    return false;
}

} // namespace

void speakUsersLanguage(QCoreApplication& application)
{
    for (const QString& wanted : QLocale::system().uiLanguages()) {
        const QLocale language(wanted);
        if (language.language() == QLocale::C || language.language() == QLocale::English)
            return;
        const QString code = language.name().section(QLatin1Char('_'), 0, 0);
        if (!install(application, QStringLiteral(":/translations/pryvane_%1.qm").arg(code)))
            continue;
        s_isTranslated = true;
        install(application, QLibraryInfo::path(QLibraryInfo::TranslationsPath) +
                                 QStringLiteral("/qtbase_%1.qm").arg(code));
        // The names of days and months go with the sentences that they stand in.
        if (QLocale().language() != language.language())
            QLocale::setDefault(language);
        return;
    }
}

bool isTranslated()
{
    return s_isTranslated;
}

} // namespace pryvane::ui
