#pragma once

#include "model/CLayerSetupDef.h"
#include "ui/OkCancelDialog.h"

#include <cstdint>
#include <vector>

class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace orbelan {

class UiServices;

// What the map setup shows and lets the user change: the layers' records
// in the order of the list (the top layer first), the heights in
// kilometres, the background colour (a Long with red in the low byte) and
// the projection code.
struct MapSetupSettings {
    std::vector<CLayerSetupDef> layers;
    float currentHeight = 0;
    float initialHeight = 0;
    // The user made the current view the map's initial view.
    bool initialViewIsCurrent = false;
    std::uint32_t backgroundColor = 0xFFFFFF;
    std::int32_t projection = 0;
};

// The map setup form: the layers in lstLayers, moved with cmdMoveUpLayer
// and cmdMoveDownLayer, dropped and restored with cmdDropLayer, their zoom
// range typed in txtZoomMin and txtZoomMax and assigned with cmdModifyLayer
// ("Asignar") or set to every height with SetZoomAlways ("Siempre"), their
// visibility chosen in cboUserVisibility; the background colour in
// shpBGColor, changed with cmdBackColor; the initial height set to the
// current one with cmdSetInitialHeight.
class dlgMapSetup : public OkCancelDialog {
    Q_OBJECT

public:
    dlgMapSetup(MapSetupSettings settings, UiServices& ui, QWidget* parent = nullptr);

    const MapSetupSettings& settings() const { return settings_; }

private:
    QWidget* buildLayerControls();
    QWidget* buildMapControls();
    void showLayers();
    void showRecord(int row);
    CLayerSetupDef* currentRecord();
    void moveCurrent(int by);
    void toggleDropped();
    void assignZoom();
    void zoomAlways();
    void setInitialHeight();
    void chooseBackColor();
    void showBackColor();

    MapSetupSettings settings_;
    UiServices& ui_;
    QListWidget* lstLayers_;
    QLineEdit* txtZoomMin_;
    QLineEdit* txtZoomMax_;
    QComboBox* cboUserVisibility_;
    QPushButton* cmdMoveUpLayer_;
    QPushButton* cmdMoveDownLayer_;
    QPushButton* cmdDropLayer_;
    QPushButton* cmdModifyLayer_;
    QPushButton* setZoomAlways_;
    QLabel* lblInitialHeight_;
    QLabel* lblCurrentHeight_;
    QFrame* shpBGColor_;
    QComboBox* cbProjection_;
};

} // namespace orbelan
