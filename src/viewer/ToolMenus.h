#pragma once

#include "viewer/PopupMenu.h"

#include <QString>

class QAction;
class QMenu;
class QWidget;

namespace orbelan {

// The three pop-up menus of the mouse tools, children of the control:
// mnuEnd ends a point entry and chooses how clicks become points, mnuSelect
// chooses how elements are selected, mnuEditGeo offers the vertex
// operations. Each item is a QAction named as the item; the check marks of
// a group exclude each other.
class ToolMenus {
public:
    explicit ToolMenus(QWidget& control);

    QMenu* menu(PopupMenu which) const;
    // The item of any of the three menus; std::out_of_range for a name none has.
    QAction& item(const QString& name) const;
    // A tool was selected: mnuEndPoint is hidden while a point element is
    // entered, offered unchecked while a line or polygon is.
    void toolSelected(int number);

    // The selection's choices, as the check marks of mnuSelect show them.
    // The method: 0 none yet, 1 individual, 2 drawn polygon, 3 layer
    // polygon, 4 condition, 5 centre and radius.
    int selectionMethod() const;
    void setSelectionMethod(int method);
    // Every vertex of an element must lie inside a drawn polygon, rather
    // than one.
    bool wholeElementInside() const;
    // Picks and polygons take elements out of the selection.
    bool removing() const;
    void stopRemoving();

private:
    QMenu* end_;
    QMenu* select_;
    QMenu* editGeography_;
};

} // namespace orbelan
