#pragma once

#include "model/MapCanvas.h"

#include <cstdint>
#include <string>
#include <vector>

// A drawing surface that records every primitive it is asked for. A vertex
// (X, Y) lands on the screen at (X, -Y), so a drawing names the vertices it
// came from; in the plane it is (2X, Y), so that angles and midpoints show
// whether they were taken in the plane.
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

    struct Label {
        double X;
        double Y;
        double angle;
        std::string text;
        bool bold;
        std::int32_t color;
        std::int16_t align;
    };

    orbelan::BoundingBox view;
    std::vector<Call> calls;
    std::vector<Label> labels;
    std::vector<std::int32_t> images;

    const orbelan::BoundingBox& ViewBox() const override { return view; }
    void ToScreen(std::span<const orbelan::Vertex> vertices, std::span<orbelan::ScreenPoint> screen) const override
    {
        for (std::size_t k = 0; k < std::min(vertices.size(), screen.size()); ++k) {
            screen[k] = {static_cast<float>(vertices[k].X), static_cast<float>(-vertices[k].Y)};
        }
    }
    void PlaneToScreen(std::span<const orbelan::Vertex> plane, std::span<orbelan::ScreenPoint> screen) const override
    {
        for (std::size_t k = 0; k < std::min(plane.size(), screen.size()); ++k) {
            screen[k] = {static_cast<float>(plane[k].X / 2), static_cast<float>(-plane[k].Y)};
        }
    }
    std::uint64_t ProjectionStamp() const override { return 1; }
    bool ToPlane(const orbelan::Vertex& geographic, orbelan::Vertex& plane) const override
    {
        plane = {2 * geographic.X, geographic.Y};
        return true;
    }
    bool FromPlane(const orbelan::Vertex& plane, orbelan::Vertex& geographic) const override
    {
        geographic = {plane.X / 2, plane.Y};
        return true;
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

    void DrawRotatedText(double X, double Y, double angle, const std::string& text, bool bold, std::int32_t color,
                         std::int16_t align) override
    {
        labels.push_back({X, Y, angle, text, bold, color, align});
    }
    void DrawImage(std::int32_t ImageNumber) override { images.push_back(ImageNumber); }
    std::vector<std::string> labelTexts() const
    {
        std::vector<std::string> texts;
        for (const Label& label : labels) {
            texts.push_back(label.text);
        }
        return texts;
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
