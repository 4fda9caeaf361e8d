#pragma once

#include "model/Theme.h"
#include "model/TipoLayer.h"

#include <QWidget>

#include <functional>

class QComboBox;

namespace orbelan {

class ClassPreview;
class UiServices;

// The style controls of the layer setup dialog: border style cbBStyle and
// width cbBWidth, fill mode cbFillMode, the border and fill colours chosen
// with cmdBorderColor and cmdFillColor, and the Preview of the result.
class ClassStyleBox : public QWidget {
public:
    // `changed` hears every change the user makes.
    ClassStyleBox(TipoLayer kind, UiServices& ui, std::function<void()> changed, QWidget* parent);

    // The style shown (bounds are not part of it).
    Theme style() const { return style_; }
    // Shows a class's style without telling `changed`.
    void showStyle(const Theme& style);

private:
    void readControls();
    void chooseColour(std::int32_t Theme::*colour);

    UiServices& ui_;
    std::function<void()> changed_;
    Theme style_;
    QComboBox* borderStyle_;
    QComboBox* borderWidth_;
    QComboBox* fillMode_;
    ClassPreview* preview_;
    bool showing_ = false;
};

} // namespace orbelan
