#include "render/LabelFonts.h"

#include <QFontMetricsF>
#include <QList>
#include <QPointF>

#include <algorithm>
#include <cmath>

namespace orbelan {

namespace {

constexpr double kTwipsPerInch = 1440;

} // namespace

LabelFonts::LabelFonts(int logicalDpiY) : pixelSize_(pixelSize(logicalDpiY)) {}

int LabelFonts::pixelSize(int logicalDpiY)
{
    const double twipsPerPixel = kTwipsPerInch / std::max(logicalDpiY, 1);
    return std::max(1, static_cast<int>(std::nearbyint(kHeightTwips / twipsPerPixel)));
}

double LabelFonts::turn(double angle)
{
    if (!std::isfinite(angle)) {
        return 0;
    }
    return std::floor(std::fmod(angle, 360.0) * 10) / 10;
}

const LabelFonts::Face& LabelFonts::face(bool bold)
{
    std::optional<Face>& slot = faces_[bold ? 1 : 0];
    if (!slot) {
        QFont font(QString::fromLatin1(kFamily));
        font.setPixelSize(pixelSize_);
        font.setWeight(bold ? QFont::Bold : QFont::Normal);
        const QFontMetricsF metrics(font);
        slot = Face{font, QRawFont::fromFont(font), metrics.ascent(), metrics.height()};
    }
    return *slot;
}

QGlyphRun LabelFonts::Face::layout(const QString& text, qreal& advance) const
{
    const QList<quint32> glyphs = raw.glyphIndexesForString(text);
    const QList<QPointF> advances = raw.advancesForGlyphIndexes(glyphs);
    QList<QPointF> positions;
    positions.reserve(glyphs.size());
    QPointF pen(0, ascent);
    for (const QPointF& step : advances) {
        positions.append(pen);
        pen += step;
    }
    advance = pen.x();
    QGlyphRun run;
    run.setRawFont(raw);
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    return run;
}

int LabelFonts::made() const
{
    return static_cast<int>(std::ranges::count_if(faces_, [](const auto& face) { return face.has_value(); }));
}

} // namespace orbelan
