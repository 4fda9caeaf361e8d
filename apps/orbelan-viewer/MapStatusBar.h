#pragma once

#include <QStatusBar>

class QLabel;
class QProgressBar;

namespace orbelan {

class Viewer;

// The window's status bar: the status text on the left; on the right the
// mouse position (latitude and longitude, and the plane's coordinates on a
// projected map), the map's scale at the screen's resolution, and a busy
// indicator while replies of the server are awaited.
class MapStatusBar : public QStatusBar {
    Q_OBJECT

public:
    MapStatusBar(Viewer& viewer, QWidget* parent);

private:
    void showPosition(double lon, double lat);
    void showScale();
    void showBusy();

    Viewer& viewer_;
    QLabel* position_;
    QLabel* scale_;
    QProgressBar* busy_;
};

} // namespace orbelan
