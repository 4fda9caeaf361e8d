#pragma once

#include <QString>

#include <cstdint>
#include <optional>

class QLabel;
class QTimer;
class QWidget;

namespace orbelan {

class Layers;
class Viewport;

// The map tooltip: when the mouse comes to rest over the map, a small box
// under the pointer shows the label of the entity there, taken from the one
// layer the host chose.
//
// While the pointer moves it is sampled every kSampleMilliseconds; two equal
// samples in a row mean it rests. Positions are the Viewer's pixels. The
// box's offsets are laid out in twips and converted at the Viewer's logical
// DPI (1440 / DPI twips per pixel, 15 at 96 DPI).
class CToolTip {
public:
    static constexpr int kSampleMilliseconds = 100;

    // The map's surface with its view and layers, the sampling timer, the
    // box and the label inside the box. The box is hidden and takes the
    // platform's tooltip colours.
    CToolTip(const QWidget& surface, const Viewport& view, Layers& layers, QTimer& timer, QWidget& box,
             QLabel& label);

    // A move while sampling hides the box; a move while idle starts sampling.
    void mousemove(float X, float Y);
    // The pointer left the map: the box hides and sampling stops.
    void pointerLeft();
    // Layer 0 switches the tooltip off and hides a box on show. The field
    // name is kept; the text shown is always the layer's label.
    void SetLayer(std::int32_t layerID, const QString& fieldName);
    // One sample: once the pointer rests, sampling stops and the label under
    // it, if any, is shown.
    void timer();

    std::int32_t layerID() const { return layerID_; }
    const QString& fieldName() const { return fieldName_; }

private:
    std::optional<QString> labelUnderPointer() const;
    void show(const QString& text);
    int twipsToPixelsX(int twips) const;
    int twipsToPixelsY(int twips) const;

    float currentX_ = 0;
    float currentY_ = 0;
    float sampledX_ = 0;
    float sampledY_ = 0;
    const QWidget& surface_;
    const Viewport& view_;
    Layers& layers_;
    QTimer& timer_;
    QWidget& box_;
    QLabel& label_;
    std::int32_t layerID_ = 0;
    QString fieldName_;
};

} // namespace orbelan
