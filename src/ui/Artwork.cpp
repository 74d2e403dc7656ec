#include "ui/Artwork.h"

#include <QLatin1String>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>

namespace pryvane::ui {

namespace {

struct Tones {
    QLatin1String name;
    QRgb from, to, rings;
};

constexpr Tones kTones[] = {
    {QLatin1String("idle_bg"), 0xff2c4a86, 0xff223764, 0xffcfdcff},
    {QLatin1String("no_threats_bg"), 0xff1f7a35, 0xff176a4b, 0xffd5f5dc},
    {QLatin1String("attention_bg"), 0xff9a6200, 0xff7a4a06, 0xffffe9c4},
    {QLatin1String("threats_bg"), 0xffb52f35, 0xff8f2440, 0xffffd9d4},
    {QLatin1String("report_bg"), 0xffb52f35, 0xff7d2a2f, 0xffffd9d4},
};

// The artwork in units of its own: it is enlarged until it covers what is asked for.
constexpr QSizeF kWhole(960, 200);
constexpr double kRingsFromRight = 100;
constexpr double kRings[] = {60, 110, 165, 230};
constexpr double kLine = 1.5;
constexpr float kOpacity = .28F;

const Tones& tonesOf(const QString& name)
{
    const auto* const found = std::ranges::find(kTones, name, &Tones::name);
    return found == std::end(kTones) ? kTones[0] : *found;
}

} // namespace

QPixmap drawnArtwork(const QString& name, const QSize& pixels, double corner)
{
    QPixmap drawn(pixels);
    drawn.fill(Qt::transparent);
    const Tones& tones = tonesOf(name);
    const QRectF area({}, QSizeF(pixels));
    const QSizeF whole = kWhole.scaled(area.size(), Qt::KeepAspectRatioByExpanding);
    const double scale = whole.width() / kWhole.width();

    QLinearGradient slope(0, 0, 1, 1);
    slope.setColorAt(0, QColor::fromRgb(tones.from));
    slope.setColorAt(1, QColor::fromRgb(tones.to));
    QBrush ground(slope);
    ground.setTransform(QTransform::fromTranslate(area.width() - whole.width(),
                                                  (area.height() - whole.height()) / 2)
                            .scale(whole.width(), whole.height()));
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(area, corner, corner);

    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop); // stay within the corners
    QColor rings = QColor::fromRgb(tones.rings);
    rings.setAlphaF(kOpacity);
    painter.setPen(QPen(rings, kLine * scale));
    painter.setBrush(Qt::NoBrush);
    const QPointF middle(area.width() - kRingsFromRight * scale, area.height() / 2);
    for (const double radius : kRings)
        painter.drawEllipse(middle, radius * scale, radius * scale);
    return drawn;
}

} // namespace pryvane::ui
