#pragma once

#include "viewer/tools/PointEntryTool.h"

namespace orbelan {

// Tool 13: each armed click adds a vertex of the polygon of a multiple
// selection; "Resume" of the end menu closes it, and the multiple selection
// goes on with it.
class SelectionPolygonTool : public PointEntryTool {
public:
    static constexpr int kNumber = 13;

    using PointEntryTool::PointEntryTool;

    int number() const override { return kNumber; }
    void closeLine() override;

protected:
    bool closes() const override { return true; }
};

} // namespace orbelan
