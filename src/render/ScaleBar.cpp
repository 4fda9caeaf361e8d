#include "render/ScaleBar.h"

#include "view/Viewport.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <array>
#include <cmath>
#include <numbers>

namespace orbelan {

namespace {

constexpr double kEarthRadiusMetres = 6371008.8;
// The two pixels measured lie this far either side of the middle.
constexpr float kHalfSample = 50;
constexpr int kMargin = 10;
constexpr int kPadding = 4;
constexpr int kBarHeight = 3;
constexpr int kTickHeight = 6;
constexpr int kTextPoints = 8;
constexpr int kBoxAlpha = 200;

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

double greatCircleMetres(double lon1, double lat1, double lon2, double lat2)
{
    const double sinLat = std::sin(radians(lat2 - lat1) / 2);
    const double sinLon = std::sin(radians(lon2 - lon1) / 2);
    const double h = sinLat * sinLat + std::cos(radians(lat1)) * std::cos(radians(lat2)) * sinLon * sinLon;
    return 2 * kEarthRadiusMetres * std::asin(std::min(1.0, std::sqrt(h)));
}

QString lengthText(double metres)
{
    return metres >= 1000 ? QStringLiteral("%1 km").arg(metres / 1000) : QStringLiteral("%1 m").arg(metres);
}

} // namespace

std::optional<double> ScaleBar::groundMetresPerPixel(const Viewport& view)
{
    if (!view.viewReady()) {
        return std::nullopt;
    }
    const float middleX = static_cast<float>(view.pixelWidth()) / 2;
    const float middleY = static_cast<float>(view.pixelHeight()) / 2;
    double lon1 = 0;
    double lat1 = 0;
    double lon2 = 0;
    double lat2 = 0;
    if (!view.screenToGeographic(middleX - kHalfSample, middleY, lon1, lat1) ||
        !view.screenToGeographic(middleX + kHalfSample, middleY, lon2, lat2)) {
        return std::nullopt;
    }
    const double metres = greatCircleMetres(lon1, lat1, lon2, lat2) / (2 * kHalfSample);
    return std::isfinite(metres) && metres > 0 ? std::optional(metres) : std::nullopt;
}

std::optional<ScaleBar::Span> ScaleBar::choose(double metresPerPixel, double maximumPixels)
{
    if (!std::isfinite(metresPerPixel) || metresPerPixel <= 0 || maximumPixels <= 0) {
        return std::nullopt;
    }
    const double room = metresPerPixel * maximumPixels;
    double metres = std::pow(10.0, std::floor(std::log10(room)));
    for (const double step : std::array{5.0, 2.0}) {
        if (metres * step <= room) {
            metres *= step;
            break;
        }
    }
    return Span{metres, metres / metresPerPixel, lengthText(metres)};
}

void ScaleBar::draw(QPainter& painter, QSize size, const Span& span)
{
    painter.save();
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(kTextPoints);
    painter.setFont(font);
    const QFontMetrics metrics(font, painter.device());
    const int barPixels = static_cast<int>(std::lround(span.pixels));
    const int width = std::max(barPixels, metrics.horizontalAdvance(span.text));
    const int height = metrics.height() + kTickHeight;
    const int right = size.width() - kMargin - kPadding;
    const int bottom = size.height() - kMargin - kPadding;
    const int left = right - width;
    painter.fillRect(QRect(left - kPadding, bottom - height - kPadding, width + 2 * kPadding, height + 2 * kPadding),
                     QColor(255, 255, 255, kBoxAlpha));
    const int barLeft = right - barPixels;
    painter.fillRect(QRect(barLeft, bottom - kBarHeight, barPixels, kBarHeight), Qt::black);
    painter.fillRect(QRect(barLeft, bottom - kTickHeight, 1, kTickHeight), Qt::black);
    painter.fillRect(QRect(right - 1, bottom - kTickHeight, 1, kTickHeight), Qt::black);
    painter.setPen(Qt::black);
    painter.drawText(QRect(left, bottom - height, width, metrics.height()), Qt::AlignHCenter | Qt::AlignBottom,
                     span.text);
    painter.restore();
}

} // namespace orbelan
