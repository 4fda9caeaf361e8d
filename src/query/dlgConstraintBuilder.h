#pragma once

#include "query/ConditionValues.h"
#include "query/Constraint.h"
#include "ui/OkCancelDialog.h"

#include <cstdint>

class QComboBox;

namespace orbelan {

class layer;

// Builds one constraint on a field of the target layer: cboFieldName,
// cboOperator (the operators the field's type allows), txtValue1 and, for
// "Between", txtValue2.
class dlgConstraintBuilder : public OkCancelDialog {
    Q_OBJECT

public:
    dlgConstraintBuilder(const layer& target, const Constraint& preset, QWidget* parent = nullptr);

    // The constraint as chosen; valid once the dialog was confirmed.
    const Constraint& constraint() const { return constraint_; }
    std::int16_t fieldType() const { return fieldType_; }

protected:
    void confirm() override;

private:
    void chooseField();

    const layer& target_;
    Constraint constraint_;
    std::int16_t fieldType_ = 0;
    QComboBox* fieldBox_;
    QComboBox* operatorBox_;
    ConditionValues values_;
};

} // namespace orbelan
