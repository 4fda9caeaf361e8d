#include "query/dlgFindByCondition.h"

#include "model/Layers.h"
#include "query/LayerByName.h"
#include "query/OperatorTexts.h"
#include "query/QueryWidgets.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>

namespace orbelan {

using namespace querywidgets;

dlgFindByCondition::dlgFindByCondition(const Layers& layers, const messages::Condition& preset, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgFindByCondition"), QStringLiteral("Find By Condition"), parent),
      layers_(layers),
      condition_(preset),
      layerBox_(comboBox("cboLayer", this)),
      fieldBox_(comboBox("cboFieldName", this)),
      operatorBox_(comboBox("cboOperator", this)),
      values_(QString::fromStdString(preset.value1), QString::fromStdString(preset.value2), *this)
{
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Layer:"), layerBox_);
    form->addRow(QStringLiteral("Field:"), fieldBox_);
    form->addRow(QStringLiteral("Operator:"), operatorBox_);
    values_.addRows(*form);
    fields().addLayout(form);

    const layer* presetLayer = layers.Find(preset.layer);
    for (const layer& mapLayer : layers)
        layerBox_->addItem(QString::fromStdString(mapLayer.Nombre));
    if (presetLayer)
        layerBox_->setCurrentText(QString::fromStdString(presetLayer->Nombre));
    chooseLayer();
    connect(layerBox_, &QComboBox::currentIndexChanged, this, &dlgFindByCondition::chooseLayer);
    connect(fieldBox_, &QComboBox::currentIndexChanged, this, &dlgFindByCondition::chooseField);
    connect(operatorBox_, &QComboBox::currentTextChanged, this,
            [this](const QString& choice) { values_.followOperator(choice); });

    const bool fieldPreset = presetLayer && fieldBox_->currentText() == QString::fromStdString(preset.field);
    const bool operatorPreset = fieldPreset && messages::conditionop::isComparison(preset.op) &&
                                operatorBox_->currentIndex() >= 0 &&
                                operatortexts::codeOf(operatorBox_->currentText()) == preset.op;
    layerBox_->setEnabled(presetLayer == nullptr);
    fieldBox_->setEnabled(!fieldPreset);
    operatorBox_->setEnabled(!operatorPreset);
}

void dlgFindByCondition::chooseLayer()
{
    const layer* chosen = layerByName(layers_, layerBox_->currentText());
    const QSignalBlocker quiet(fieldBox_);
    fieldBox_->clear();
    if (chosen) {
        condition_.layer = chosen->IDLayer;
        for (const Campo& field : chosen->Campos())
            fieldBox_->addItem(QString::fromStdString(field.Nombre));
    }
    selectOrFirst(*fieldBox_, QString::fromStdString(condition_.field));
    chooseField();
}

void dlgFindByCondition::chooseField()
{
    const layer* chosen = layers_.Find(condition_.layer);
    const Campo* field = chosen ? chosen->Campos().Find(fieldBox_->currentText().toStdString()) : nullptr;
    const std::int16_t type = field ? field->Tipo : std::int16_t{0};
    {
        const QSignalBlocker quiet(operatorBox_);
        const QStringList choices = operatortexts::findChoices(type);
        operatorBox_->clear();
        operatorBox_->addItems(choices);
        for (int i = 0; i < choices.size(); ++i) {
            if (operatortexts::codeOf(choices[i]) == condition_.op)
                operatorBox_->setCurrentIndex(i);
        }
    }
    values_.setFieldType(type);
    values_.followOperator(operatorBox_->currentText());
}

void dlgFindByCondition::confirm()
{
    const layer* chosen = layerByName(layers_, layerBox_->currentText());
    if (chosen)
        condition_.layer = chosen->IDLayer;
    condition_.field = fieldBox_->currentText().toStdString();
    const Campo* field = chosen ? chosen->Campos().Find(condition_.field) : nullptr;
    condition_.fieldType = field ? field->Tipo : std::int16_t{0};
    if (const std::uint8_t code = operatortexts::codeOf(operatorBox_->currentText()); code != 0)
        condition_.op = code;
    condition_.value1 = values_.value1().toStdString();
    condition_.value2 = values_.value2().toStdString();
}

} // namespace orbelan
