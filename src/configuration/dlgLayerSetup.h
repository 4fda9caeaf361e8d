#pragma once

#include "configuration/LayerStyle.h"
#include "ui/OkCancelDialog.h"

#include <QStringList>

#include <cstdint>
#include <string>
#include <vector>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace orbelan {

class ClassStyleBox;
class FieldKeyFilter;
class LabelSettingsBox;
class UiServices;
class layer;

// Styles one layer on a working copy of its classes: the theme field
// cbThemeField and method cbThemeMethod ("None", "Lista de Valores",
// "Rangos"), the number of ranges cbQtyClasses, the classes lstThemeClasses
// with their bounds txtMin and txtMax (cmdNewClass, cmdChangeValues,
// cmdDeleteClass), the colour ramp from shpColor0 to ShpColor1 (chosen with
// cmdColor0 and cmdColor1, or typed "#rrggbb" by a script), the style of
// the selected class and the labels.
//
// The values a classification needs come from the server: cmdQrySvr closes
// the dialog with kQueryServer, and Stats hands them over when they arrive,
// before the dialog is shown again.
class dlgLayerSetup : public OkCancelDialog {
    Q_OBJECT

public:
    static constexpr int kQueryServer = 2;

    dlgLayerSetup(const layer& source, float currentHeight, UiServices& ui, QWidget* parent);
    ~dlgLayerSetup() override;

    std::int32_t layerId() const { return layerId_; }
    // What request 6 asks for: the theme field's name and the method.
    QString themeField() const;
    ThemeMethod method() const;
    // The statistics values of the current field and method.
    void Stats(std::vector<std::string> values);
    // The settings chosen; the working classes go with them.
    LayerStyle takeStyle();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* themePart();
    QWidget* classPart();
    QWidget* rampPart();
    void load(const layer& source);
    void chooseMethod();
    void chooseThemeField();
    void chooseLabelField();
    void followMethod();
    void followFieldType();
    bool sameFieldTwice() const;
    void invalid(const QString& text);
    std::int16_t fieldType() const;
    void rebuildClasses();
    void showCount();
    void showClasses(int selectedRow);
    void selectClass(int row);
    void restyleClass();
    void newClass();
    void changeValues();
    void deleteClass();
    void chooseRampColour(bool last);
    void typeRampColour(bool last, const QString& text);
    Theme* selectedClass();

    UiServices& ui_;
    std::int32_t layerId_;
    TipoLayer kind_;
    QStringList fieldNames_;
    std::vector<std::int16_t> fieldTypes_;
    ThematicMap themes_;
    std::vector<std::string> statistics_;
    std::int32_t ramp_[2] = {0, 0xFFFFFF};
    bool quiet_ = true;

    QComboBox* themeField_;
    QComboBox* method_;
    QComboBox* count_;
    QPushButton* query_;
    QListWidget* classList_;
    QLineEdit* min_;
    QLineEdit* max_;
    QPushButton* new_;
    QPushButton* change_;
    QPushButton* delete_;
    QLineEdit* swatches_[2];
    FieldKeyFilter* minFilter_ = nullptr;
    FieldKeyFilter* maxFilter_ = nullptr;
    ClassStyleBox* style_;
    LabelSettingsBox* labels_;
};

} // namespace orbelan
