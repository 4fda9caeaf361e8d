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

private:
    QMenu* end_;
    QMenu* select_;
    QMenu* editGeography_;
};

} // namespace orbelan
