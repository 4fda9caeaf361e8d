#pragma once

#include "model/Vertex.h"
#include "query/dlgSelect.h"

#include <memory>
#include <vector>

namespace orbelan {

class ViewerPrivate;

// The multiple selection of one control: the dialog dlgSelect, which lives
// while the user picks or draws its polygon on the map, and the query of
// the chosen elements, whose answer fills the information grid.
class MultipleSelection {
public:
    explicit MultipleSelection(ViewerPrivate& viewer);
    ~MultipleSelection();

    MultipleSelection(const MultipleSelection&) = delete;
    MultipleSelection& operator=(const MultipleSelection&) = delete;

    // Opens the dialog with the preset, or, while a selection is under way,
    // takes the polygon picked or drawn and shows the dialog again.
    void select(const SelectionPreset& preset);
    // The polygon tool ended: the selection goes on.
    void resume();

private:
    void takePolygon();
    void showDialog();
    void execute(const dlgSelect& dialog);
    // The vertices of the polygon the dialog chose; none without one.
    std::vector<Vertex> polygonOf(const dlgSelect& dialog) const;

    ViewerPrivate& viewer_;
    std::unique_ptr<dlgSelect> dialog_;
    std::vector<Vertex> drawnPolygon_;
};

} // namespace orbelan
