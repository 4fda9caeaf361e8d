#include "LabelFonts.h"

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
        slot = Face{font, metrics, metrics.ascent()};
    }
    return *slot;
}

int LabelFonts::made() const
{
    return static_cast<int>(std::ranges::count_if(faces_, [](const auto& face) { return face.has_value(); }));
}

} // namespace orbelan
