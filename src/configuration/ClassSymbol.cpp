#include "configuration/ClassSymbol.h"

#include "model/ScreenPoint.h"
#include "render/OleColor.h"
#include "render/QtMapCanvas.h"
#include "view/Viewport.h"

#include <array>

namespace orbelan {

namespace {

// The polygon stays this many pixels inside the box, so its outline shows.
constexpr float kInset = 2;

void drawSymbol(MapCanvas& canvas, const Theme& theme, TipoLayer kind, float width, float height)
{
    const float middle = height / 2;
    switch (static_cast<std::int32_t>(kind)) {
    case pointlayer: {
        const std::array<ScreenPoint, 1> centre{{{width / 2, middle}}};
        canvas.DrawPoints(centre, theme);
        break;
    }
    case polylinelayer:
    case 3: {
        const std::array<ScreenPoint, 2> across{{{kInset, middle}, {width - kInset, middle}}};
        canvas.DrawPolyline(across, theme, true);
        break;
    }
    case polygonlayer: {
        const float right = width - 1 - kInset;
        const float bottom = height - 1 - kInset;
        const std::array<ScreenPoint, 5> ring{
            {{kInset, kInset}, {right, kInset}, {right, bottom}, {kInset, bottom}, {kInset, kInset}}};
        canvas.DrawPolygon(ring, theme);
        break;
    }
    default:
        break;
    }
}

} // namespace

QImage classSymbol(const Theme& theme, TipoLayer kind, QSize size, std::uint32_t background,
                   const QPalette& palette)
{
    // The surface takes screen points here; its view converts nothing.
    static const Viewport noView;
    QImage symbol(size, QImage::Format_RGB32);
    symbol.fill(olecolor::toQColor(background, palette));
    QtMapCanvas canvas(symbol, noView, palette);
    drawSymbol(canvas, theme, kind, static_cast<float>(size.width()), static_cast<float>(size.height()));
    return symbol;
}

} // namespace orbelan
