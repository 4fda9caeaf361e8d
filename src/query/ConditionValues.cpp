#include "query/ConditionValues.h"

#include "protocol/messages/Condition.h"
#include "query/OperatorTexts.h"
#include "query/QueryWidgets.h"
#include "ui/FieldKeyFilter.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace orbelan {

ConditionValues::ConditionValues(const QString& value1, const QString& value2, QWidget& parent)
    : value1Box_(querywidgets::lineEdit("txtValue1", value1, &parent)),
      andLabel_(querywidgets::label("lblAnd", QStringLiteral("And"), &parent)),
      value2Box_(querywidgets::lineEdit("txtValue2", value2, &parent))
{
}

void ConditionValues::addRows(QFormLayout& form)
{
    form.addRow(QStringLiteral("Value:"), value1Box_);
    form.addRow(andLabel_, value2Box_);
}

void ConditionValues::setFieldType(std::int16_t fieldType)
{
    delete value1Filter_;
    delete value2Filter_;
    value1Filter_ = new FieldKeyFilter(fieldType, *value1Box_);
    value2Filter_ = new FieldKeyFilter(fieldType, *value2Box_);
}

void ConditionValues::followOperator(const QString& choice)
{
    const bool between = operatortexts::codeOf(choice) == messages::conditionop::kBetween;
    andLabel_->setVisible(between);
    value2Box_->setVisible(between);
}

QString ConditionValues::value1() const
{
    return value1Box_->text();
}

QString ConditionValues::value2() const
{
    return value2Box_->text();
}

} // namespace orbelan
