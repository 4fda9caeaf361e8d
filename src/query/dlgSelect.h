#pragma once

#include "query/Constraint.h"

#include <QDialog>

#include <cstdint>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace orbelan {

class Layers;
class UiServices;
class layer;

// What a multiple selection starts from.
struct SelectionPreset {
    std::int32_t sourceLayer = 0;
    std::int32_t targetLayer = 0;
    // A polygon element of the source layer; 0 for none.
    std::int32_t polygonElement = 0;
    // Whether the polygon is an element of the source layer rather than
    // one the user draws.
    bool fromPolygon = false;
    std::vector<Constraint> constraints;
};

// Gathers a multiple selection: which elements of the target layer
// (cboTargetLayer) are wanted, inside which polygon (none, optNoPol; an
// element of a visible polygon layer, optSelPol and cboSourceLayer; or one
// drawn on the map, optDrawPol) and under which constraints (chkRestrictions,
// lstConstraints, built one by one with cmdAddConstraint). cmdSelPol and
// cmdDrawPol end the dialog for the map to pick or draw the polygon; the
// caller shows it again afterwards.
class dlgSelect : public QDialog {
    Q_OBJECT

public:
    enum PolygonAction { Go = 0, PickPolygon = 1, DrawPolygon = 2 };
    enum PolygonSource { NoPolygon = 0, ElementPolygon = 1, DrawnPolygon = 2 };

    dlgSelect(const Layers& layers, const SelectionPreset& preset, UiServices& ui, QWidget* parent = nullptr);

    bool cancelled() const { return cancelled_; }
    PolygonAction action() const { return action_; }
    PolygonSource polygonSource() const;
    std::int32_t sourceLayer() const { return sourceLayer_; }
    std::int32_t targetLayer() const { return targetLayer_; }
    std::int32_t polygonElement() const { return polygonElement_; }
    void setPolygonElement(std::int32_t id);
    // The constraints when chkRestrictions is checked, else none.
    std::vector<Constraint> constraints() const;
    // Takes the constraints, or clears them all when one does not fit the
    // target layer (or there is no target layer).
    void setConstraints(std::vector<Constraint> constraints);

public slots:
    void reject() override;

private:
    void buildLayout();
    void connectControls();
    void fillLayerLists(const SelectionPreset& preset);
    void choosePolygonSource();
    void chooseSourceLayer();
    void chooseTargetLayer();
    void restrict(bool restricted);
    void addConstraint();
    void removeConstraint();
    void drawConstraints();
    void endFor(PolygonAction action);
    void confirm();
    // The first reason the choices cannot go ahead; empty when they can.
    QString refusal() const;
    bool visible(std::int32_t layerId) const;

    const Layers& layers_;
    UiServices& ui_;
    std::int32_t sourceLayer_;
    std::int32_t targetLayer_;
    std::int32_t polygonElement_ = 0;
    std::vector<Constraint> constraints_;
    PolygonAction action_ = Go;
    bool cancelled_ = true;
    QString targetName_;
    QComboBox* sourceBox_;
    QComboBox* targetBox_;
    QRadioButton* noPolygon_;
    QRadioButton* elementPolygon_;
    QRadioButton* drawnPolygon_;
    QPushButton* pickButton_;
    QPushButton* drawButton_;
    QLabel* elementLabel_;
    QCheckBox* restrictions_;
    QListWidget* constraintList_;
    QPushButton* addButton_;
    QPushButton* removeButton_;
};

} // namespace orbelan
