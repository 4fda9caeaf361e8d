#include "viewer/ToolMenus.h"

#include <QActionGroup>
#include <QMenu>

#include <array>
#include <initializer_list>
#include <stdexcept>
#include <utility>

namespace orbelan {

namespace {

constexpr int kNewPointTool = 5;
constexpr int kNewPolylineTool = 6;
constexpr int kNewPolygonTool = 7;

// The items of the selection methods, in the methods' order from 1.
constexpr std::array<const char*, 5> kSelectionMethods = {"mnuSelectIndividual", "mnuSelectPolygon",
                                                          "mnuLayerPolygon", "mnuSQLSelect", "mnuCenterRadius"};

// Items in order: name and caption; an empty caption is a separator.
using Items = std::initializer_list<std::pair<const char*, const char*>>;

const Items kEndItems = {
    {"mnuCerrarPline", "Resume"},
    {"mnuEraseLastPoint", "Delete Last Point"},
    {"mnuEndPoint", "EndPoint"},
    {"mnuRelativeTo", "Relative To..."},
    {"mnuSmartEndPoint", "Smart Endpoint"},
    {"mnuCancelElement", "Cancel"},
};

const Items kSelectItems = {
    {"mnuEndSelection", "Resume"},
    {"mnuCancelSelection", "Cancel"},
    {"mnuSeparator", ""},
    {"mnuClearSelection", "Clear Selection"},
    {"mnuSeparator1", ""},
    {"mnuSelectIndividual", "Individual"},
    {"mnuSelectPolygon", "Polygon"},
    {"mnuWholeElementInside", "Whole Element Inside"},
    {"mnuOneVertex", "At least one vertex Inside"},
    {"mnuLayerPolygon", "Layer Polygon"},
    {"mnuSQLSelect", "SQL Select..."},
    {"mnuCenterRadius", "Center and Radius"},
    {"mnuSeparator2", ""},
    {"mnuRemoveElementsFromSelection", "Remove Elements"},
    {"mnuSeparator3", ""},
    {"mnuZoomToSelected", "Zoom To Selected Objects"},
};

const Items kEditGeographyItems = {
    {"mnuNextVertex", "Next Vertex"},
    {"mnuPrevVertex", "Previous Vertex"},
    {"mnuSeparator4", ""},
    {"mnuMoveVertex", "Move"},
    {"mnuInsertVertexBefore", "Insert Before"},
    {"mnuInsertVertexAfter", "Insert After"},
    {"mnuDeleteVertex", "Delete"},
    {"mnuJoin", "Join"},
    {"mnuBreak", "Break"},
    {"mnuSeparator5", ""},
    {"mnuEditProceed", "Proceed"},
    {"mnuEditCancel", "Cancel"},
};

QMenu* makeMenu(QWidget& control, const char* name, const char* title, Items items)
{
    auto* menu = new QMenu(QString::fromLatin1(title), &control);
    menu->setObjectName(QString::fromLatin1(name));
    for (const auto& [itemName, caption] : items) {
        QAction* item = *caption ? menu->addAction(QString::fromLatin1(caption)) : menu->addSeparator();
        item->setObjectName(QString::fromLatin1(itemName));
    }
    return menu;
}

// Checkable items of which at most one (optional) or exactly one is checked.
void group(QMenu& menu, std::initializer_list<const char*> names, QActionGroup::ExclusionPolicy policy)
{
    auto* checks = new QActionGroup(&menu);
    checks->setExclusionPolicy(policy);
    for (const char* name : names) {
        QAction* item = menu.findChild<QAction*>(QString::fromLatin1(name));
        item->setCheckable(true);
        checks->addAction(item);
    }
}

} // namespace

ToolMenus::ToolMenus(QWidget& control)
    : end_(makeMenu(control, "mnuEnd", "MenuEndPoint", kEndItems)),
      select_(makeMenu(control, "mnuSelect", "MenuSelect", kSelectItems)),
      editGeography_(makeMenu(control, "mnuEditGeo", "MenuEditGeography", kEditGeographyItems))
{
    using enum QActionGroup::ExclusionPolicy;
    group(*end_, {"mnuEndPoint", "mnuRelativeTo", "mnuSmartEndPoint"}, ExclusiveOptional);
    group(*select_, {"mnuSelectIndividual", "mnuSelectPolygon", "mnuLayerPolygon", "mnuSQLSelect", "mnuCenterRadius"},
          Exclusive);
    group(*select_, {"mnuWholeElementInside", "mnuOneVertex"}, Exclusive);
    item("mnuWholeElementInside").setChecked(true);
    item("mnuRemoveElementsFromSelection").setCheckable(true);
}

QMenu* ToolMenus::menu(PopupMenu which) const
{
    switch (which) {
    case PopupMenu::End: return end_;
    case PopupMenu::Select: return select_;
    case PopupMenu::EditGeography: return editGeography_;
    case PopupMenu::None: break;
    }
    return nullptr;
}

QAction& ToolMenus::item(const QString& name) const
{
    for (const QMenu* menu : {end_, select_, editGeography_}) {
        if (QAction* found = menu->findChild<QAction*>(name, Qt::FindDirectChildrenOnly)) {
            return *found;
        }
    }
    throw std::out_of_range("no menu item " + name.toStdString());
}

void ToolMenus::toolSelected(int number)
{
    QAction& endPoint = item(QStringLiteral("mnuEndPoint"));
    if (number == kNewPointTool) {
        endPoint.setVisible(false);
    } else if (number == kNewPolylineTool || number == kNewPolygonTool) {
        endPoint.setVisible(true);
        endPoint.setChecked(false);
    }
}

int ToolMenus::selectionMethod() const
{
    for (int method = 1; const char* name : kSelectionMethods) {
        if (item(QString::fromLatin1(name)).isChecked()) {
            return method;
        }
        ++method;
    }
    return 0;
}

void ToolMenus::setSelectionMethod(int method)
{
    item(QString::fromLatin1(kSelectionMethods.at(static_cast<std::size_t>(method - 1)))).setChecked(true);
}

bool ToolMenus::wholeElementInside() const
{
    return item(QStringLiteral("mnuWholeElementInside")).isChecked();
}

bool ToolMenus::removing() const
{
    return item(QStringLiteral("mnuRemoveElementsFromSelection")).isChecked();
}

void ToolMenus::stopRemoving()
{
    item(QStringLiteral("mnuRemoveElementsFromSelection")).setChecked(false);
}

} // namespace orbelan
