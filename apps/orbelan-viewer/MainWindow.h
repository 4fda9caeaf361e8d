#pragma once

#include <QMainWindow>

namespace orbelan {

class UiServices;
class Viewer;

// The window of orbelan-viewer: the control in the middle, a menu entry for
// each of its commands that need no arguments, a tool bar of its mouse tools,
// a status bar that shows what the control reports, and the user's password
// change.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // Dialogs open through ui (not owned).
    MainWindow(Viewer* viewer, UiServices& ui);

private:
    void addMenus();
    void addToolBar();
    void reportEvents();
    void changePassword();
    void saveMap();
    void exportMap();

    Viewer* viewer_;
    UiServices& ui_;
};

} // namespace orbelan
