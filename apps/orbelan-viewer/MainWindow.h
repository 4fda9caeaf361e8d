#pragma once

#include <QMainWindow>

namespace orbelan {

class Viewer;

// The window of orbelan-viewer: the control in the middle, a menu entry for
// each of its commands that need no arguments, a tool bar of its mouse tools,
// and a status bar that shows what the control reports.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Viewer* viewer);

private:
    void addMenus();
    void addToolBar();
    void reportEvents();

    Viewer* viewer_;
};

} // namespace orbelan
