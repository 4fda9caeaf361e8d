#pragma once

#include "viewer/MapTool.h"

namespace orbelan {

// Tools 4 and 10: an armed click picks every element of the target layer
// under it and ends the tool; the values of each picked element are then
// asked for, to be shown (tool 4) or changed (tool 10).
class InformationTool : public MapTool {
public:
    static constexpr int kNumber = 4;
    static constexpr int kEditingNumber = 10;

    InformationTool(MapToolHost& host, ToolState& state, bool forEditing);

    int number() const override { return forEditing_ ? kEditingNumber : kNumber; }
    bool armsFirst() const override { return true; }
    QCursor cursor() const override;
    void click(const MapMouseEvent& event) override;
    void endSelection() override;

private:
    bool forEditing_;
};

} // namespace orbelan
