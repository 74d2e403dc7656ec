#include "ui/Icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace pryvane::ui {

namespace {

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString iconPath(const QString& name)
{
    return QStringLiteral(":/icons/") + name + QStringLiteral(".svg");
}

/// Draws one icon in the colour that its meaning has in the palette of the moment.
class TintedIcon final : public QIconEngine {
public:
    TintedIcon(QString name, Meaning meaning) : m_name(std::move(name)), m_meaning(meaning) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const int size = std::min(rect.width(), rect.height());
        const QPixmap drawn =
            iconPixmap(m_name, colorFor(mode), size, painter->device()->devicePixelRatioF());
        painter->drawPixmap(rect.x() + (rect.width() - size) / 2,
                            rect.y() + (rect.height() - size) / 2, drawn);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        return iconPixmap(m_name, colorFor(mode), std::min(size.width(), size.height()), 1);
    }

    [[nodiscard]] QIconEngine* clone() const override { return new TintedIcon(m_name, m_meaning); }

private:
    [[nodiscard]] QColor colorFor(QIcon::Mode mode) const
    {
        const QPalette palette = QApplication::palette();
        if (mode == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::WindowText);
        return colorOf(m_meaning, palette);
    }

    QString m_name;
    Meaning m_meaning;
};

} // namespace

QIcon icon(const QString& name, Meaning meaning)
{
    return QFile::exists(iconPath(name)) ? QIcon(new TintedIcon(name, meaning)) : QIcon();
}

QPixmap iconPixmap(const QString& name, const QColor& color, int size, double devicePixelRatio)
{
    const int pixels = qRound(size * devicePixelRatio);
    const QString key = name + color.name(QColor::HexArgb) + QString::number(pixels);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QByteArray drawing = read(iconPath(name));
    drawing.replace("currentColor", color.name().toLatin1());
    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(drawing);
    QPainter painter(&pixmap);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QIcon panelIcon(const QString& name)
{
    QIcon result;
    for (const int size : {16, 22, 24, 32, 48}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(43, 91, 199));
        painter.drawRoundedRect(QRectF(pixmap.rect()), size / 4., size / 4.);
        const int inside = size * 3 / 4, edge = (size - inside) / 2;
        painter.drawPixmap(edge, edge, iconPixmap(name, Qt::white, inside, 1));
        painter.end();
        result.addPixmap(pixmap);
    }
    return result;
}

QIcon applicationIcon()
{
    QIcon result;
    QSvgRenderer renderer(QStringLiteral(":/art/pryvane.svg"));
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        result.addPixmap(pixmap);
    }
    return result;
}

} // namespace pryvane::ui
