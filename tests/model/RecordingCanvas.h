#pragma once

#include "MapCanvas.h"

#include <cstdint>
#include <vector>

// A drawing surface that records every primitive it is asked for. A vertex
// (X, Y) lands on the screen at (X, -Y), so a drawing names the vertices it
// came from.
class RecordingCanvas : public orbelan::MapCanvas {
public:
    enum Kind { Points, Polyline, Polygon, DirectionMark };
    struct Call {
        Kind kind;
        std::vector<orbelan::ScreenPoint> points;
        orbelan::Theme theme;
        bool setLineStyle = false;
        std::int16_t direction = 0;
    };

    orbelan::BoundingBox view;
    std::vector<Call> calls;

    const orbelan::BoundingBox& ViewBox() const override { return view; }
    void ToScreen(std::span<const orbelan::Vertex> vertices, std::span<orbelan::ScreenPoint> screen) const override
    {
        for (std::size_t k = 0; k < std::min(vertices.size(), screen.size()); ++k) {
            screen[k] = {static_cast<float>(vertices[k].X), static_cast<float>(-vertices[k].Y)};
        }
    }
    void DrawPoints(std::span<const orbelan::ScreenPoint> points, const orbelan::Theme& theme) override
    {
        calls.push_back({Points, {points.begin(), points.end()}, theme});
    }
    void DrawPolyline(std::span<const orbelan::ScreenPoint> points, const orbelan::Theme& theme,
                      bool setLineStyle) override
    {
        calls.push_back({Polyline, {points.begin(), points.end()}, theme, setLineStyle});
    }
    void DrawPolygon(std::span<const orbelan::ScreenPoint> points, const orbelan::Theme& theme) override
    {
        calls.push_back({Polygon, {points.begin(), points.end()}, theme});
    }
    void DrawDirectionMark(orbelan::ScreenPoint from, orbelan::ScreenPoint to, std::int16_t direction) override
    {
        calls.push_back({DirectionMark, {from, to}, {}, false, direction});
    }

    // The first X of each drawing, which the tests make the entity's ID.
    std::vector<std::int32_t> drawnFirstX() const
    {
        std::vector<std::int32_t> ids;
        for (const Call& call : calls) {
            ids.push_back(static_cast<std::int32_t>(call.points.at(0).X));
        }
        return ids;
    }
};
