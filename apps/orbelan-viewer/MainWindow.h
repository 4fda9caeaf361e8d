#pragma once

#include <QMainWindow>

#include <cstdint>
#include <functional>

class QMenu;
class QMetaMethod;
class QPlainTextEdit;

namespace orbelan {

class UiServices;
class Viewer;

// The window of orbelan-viewer: the control in the middle, a menu entry for
// each of its commands that need no arguments, the queries on a layer of the
// map (Query → Identify, Edit attributes, Find), a tool bar of its mouse tools,
// a status bar with the mouse position and the scale, a log pane of the
// control's events (View → Event log), and the user's password change. The
// title names the loaded map.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // Dialogs open through ui (not owned).
    MainWindow(Viewer* viewer, UiServices& ui);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addMenus();
    void addCommand(QMenu& menu, const QMetaMethod& method);
    void addLayerMenu(QMenu& menu, const QString& title, const QString& name,
                      const std::function<void(std::int32_t)>& act);
    void addEventLog();
    void addToolBar();
    void reportEvents();
    void zoomOnKeys();
    void changePassword();
    void saveMap();
    void exportMap();

    Viewer* viewer_;
    UiServices& ui_;
    QPlainTextEdit* eventLog_ = nullptr;
};

} // namespace orbelan
