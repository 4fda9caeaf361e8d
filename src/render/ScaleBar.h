#pragma once

#include <QString>

#include <optional>

class QPainter;
class QSize;

namespace orbelan {

class Viewport;

// A metric scale bar: the longest round length (1, 2 or 5 times a power of
// ten metres) that fits the room given, measured on the ground through the
// middle of the view, and drawn in the bottom-right corner of the map.
class ScaleBar {
public:
    // The bar's length on the ground, on the screen, and as written ("500 m", "2 km").
    struct Span {
        double metres = 0;
        double pixels = 0;
        QString text;
    };

    static constexpr double kMaximumPixels = 150;

    // Metres on the ground per pixel, across the middle of the view: the
    // great-circle distance (mean Earth radius) between two pixels of its
    // middle row, so latitude/longitude and projected maps alike. Empty
    // without a view or where the middle has no geographic position.
    static std::optional<double> groundMetresPerPixel(const Viewport& view);

    // The bar for that ground scale; empty for a scale that is not a
    // positive finite number.
    static std::optional<Span> choose(double metresPerPixel, double maximumPixels = kMaximumPixels);

    // Draws the bar over a picture of that size: a white box, the bar in
    // black with its length written over it.
    static void draw(QPainter& painter, QSize size, const Span& span);
};

} // namespace orbelan
