#pragma once

#include "protocol/messages/Condition.h"
#include "query/ConditionValues.h"
#include "ui/OkCancelDialog.h"

class QComboBox;

namespace orbelan {

class Layers;

// Builds a condition on one field of one layer of the map: cboLayer,
// cboFieldName and cboOperator (the operators the field's type allows),
// txtValue1 and, for "Between", txtValue2. The parts the caller preset are
// locked: the layer, then the field, then the operator.
class dlgFindByCondition : public OkCancelDialog {
    Q_OBJECT

public:
    dlgFindByCondition(const Layers& layers, const messages::Condition& preset, QWidget* parent = nullptr);

    // The condition as chosen; valid once the dialog was confirmed.
    const messages::Condition& condition() const { return condition_; }

protected:
    void confirm() override;

private:
    void chooseLayer();
    void chooseField();

    const Layers& layers_;
    messages::Condition condition_;
    QComboBox* layerBox_;
    QComboBox* fieldBox_;
    QComboBox* operatorBox_;
    ConditionValues values_;
};

} // namespace orbelan
