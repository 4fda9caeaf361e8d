#pragma once

#include "viewer/MapTool.h"

namespace orbelan {

// Tool 2: a click zooms by the chosen factor about the clicked point.
class ZoomFactorTool : public MapTool {
public:
    static constexpr int kNumber = 2;

    using MapTool::MapTool;

    int number() const override { return kNumber; }
    QCursor cursor() const override;
    void click(const MapMouseEvent& event) override;

    float factor() const { return factor_; }
    void setFactor(float factor) { factor_ = factor; }

private:
    float factor_ = 2;
};

} // namespace orbelan
