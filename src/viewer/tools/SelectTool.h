#pragma once

#include "viewer/tools/PointEntryTool.h"

namespace orbelan {

// Tool 11: collects elements of the target layer, by the method checked in
// the selection menu. One at a time, an armed click adds the element under
// it, or takes it out in remove mode. With a drawn polygon, each click adds
// a vertex and "Resume" of the end menu collects the elements inside by the
// containment rule, then returns to picking one at a time. "Resume" of the
// selection menu tells hosts what was collected.
class SelectTool : public PointEntryTool {
public:
    static constexpr int kNumber = 11;

    using PointEntryTool::PointEntryTool;

    int number() const override { return kNumber; }
    bool drags() const override;
    PopupMenu menu() override;
    void click(const MapMouseEvent& event) override;
    void closeLine() override;
    void endSelection() override;

protected:
    bool closes() const override { return true; }

private:
    // Adds the IDs to the selection, or takes them out in remove mode.
    void collect(const std::vector<std::int32_t>& ids);
};

} // namespace orbelan
