#include "query/dlgConstraintBuilder.h"

#include "model/layer.h"
#include "query/OperatorTexts.h"
#include "query/QueryWidgets.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>

namespace orbelan {

using namespace querywidgets;

dlgConstraintBuilder::dlgConstraintBuilder(const layer& target, const Constraint& preset, QWidget* parent)
    : OkCancelDialog(QStringLiteral("dlgConstraintBuilder"), QStringLiteral("Constraint"), parent),
      target_(target),
      constraint_(preset),
      fieldBox_(comboBox("cboFieldName", this)),
      operatorBox_(comboBox("cboOperator", this)),
      values_(preset.value1, preset.value2, *this)
{
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Field:"), fieldBox_);
    form->addRow(QStringLiteral("Operator:"), operatorBox_);
    values_.addRows(*form);
    fields().addLayout(form);
    for (const Campo& field : target.Campos())
        fieldBox_->addItem(QString::fromStdString(field.Nombre));
    selectOrFirst(*fieldBox_, preset.field);
    chooseField();
    connect(fieldBox_, &QComboBox::currentIndexChanged, this, &dlgConstraintBuilder::chooseField);
    connect(operatorBox_, &QComboBox::currentTextChanged, this,
            [this](const QString& choice) { values_.followOperator(choice); });
}

void dlgConstraintBuilder::chooseField()
{
    const Campo* field = target_.Campos().Find(fieldBox_->currentText().toStdString());
    fieldType_ = field ? field->Tipo : std::int16_t{0};
    {
        const QSignalBlocker quiet(operatorBox_);
        operatorBox_->clear();
        operatorBox_->addItems(operatortexts::constraintChoices(fieldType_));
    }
    values_.setFieldType(fieldType_);
    values_.followOperator(operatorBox_->currentText());
}

void dlgConstraintBuilder::confirm()
{
    constraint_ = {fieldBox_->currentText(), operatortexts::codeOf(operatorBox_->currentText()), values_.value1(),
                   values_.value2()};
}

} // namespace orbelan
