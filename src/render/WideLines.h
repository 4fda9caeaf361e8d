#pragma once

#include "render/PixelBuffer.h"

#include <QImage>
#include <QPointF>

#include <cstdint>
#include <vector>

namespace orbelan {

// Smooth solid lines wider than a pixel, with round joins and ends, set into
// a 32-bit picture: what the painter's wide antialiased pen draws, without
// building and filling an outline of every join. Coordinates are those of
// pixel centres.
//
// A pixel's coverage is the share of it within half the width of a segment,
// taken from its centre's distance to the segment. Segments gather their
// coverage, each pixel keeping the largest, until composite() lays the
// colour over the picture once: joins and crossings of one path are not
// darkened by the segments that overlap there.
class WideLines {
public:
    explicit WideLines(QImage& picture) : pixels_(picture) {}

    bool usable() const { return pixels_.usable(); }
    // The colour and width of what is gathered after the last composite().
    void setPen(QRgb color, double width);
    // A segment whose ends coincide is a dot as wide as the line.
    void segment(QPointF from, QPointF to);
    void composite();

private:
    void cover(int x, int y, double coverage);

    PixelBuffer pixels_;
    QRgb color_ = 0;
    // How far from a segment a pixel centre is still partly covered.
    double reach_ = 1;
    // Coverage per pixel, 0 to 255, and which pixels have some.
    std::vector<std::uint8_t> coverage_;
    std::vector<int> covered_;
};

} // namespace orbelan
