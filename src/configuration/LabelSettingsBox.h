#pragma once

#include "configuration/LayerStyle.h"

#include <QWidget>

#include <cstdint>
#include <functional>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace orbelan {

class UiServices;
class layer;

// The label and direction controls of the layer setup dialog: the label
// field cbLblField ("<None>" and the layer's fields), its colour
// (cmdlblColor), chklblBold, cbLblVisible ("Off", "Auto", "On"), the height
// boxes txtMinHeight and txtMaxHeight (enabled while "Auto" is chosen),
// chkAllowDuplicates and chkDirections, and lblCurrHeight, the Viewer's
// current height.
class LabelSettingsBox : public QWidget {
public:
    // `fieldChosen` hears each label field the user chooses.
    LabelSettingsBox(const layer& source, float currentHeight, UiServices& ui,
                     std::function<void()> fieldChosen, QWidget* parent);

    // "<None>" or a field name.
    QString field() const;
    // Back to "<None>".
    void clearField();
    // Fills the label and direction part of the style.
    void writeTo(LayerStyle& style) const;

private:
    void followField();
    void followVisibility();

    UiServices& ui_;
    QComboBox* field_;
    QPushButton* colourButton_;
    QCheckBox* bold_;
    QComboBox* visibility_;
    QLineEdit* minHeight_;
    QLineEdit* maxHeight_;
    QCheckBox* allowDuplicates_;
    QCheckBox* directions_;
    std::int32_t colour_;
};

} // namespace orbelan
