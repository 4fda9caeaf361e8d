#pragma once

#include <QString>

#include <cstdint>

class QFormLayout;
class QLabel;
class QLineEdit;
class QWidget;

namespace orbelan {

class FieldKeyFilter;

// The two value boxes of a condition, txtValue1 and txtValue2 with its
// label lblAnd: the second shows only for "Between", and both take only
// the keys the field's type allows.
class ConditionValues {
public:
    ConditionValues(const QString& value1, const QString& value2, QWidget& parent);

    void addRows(QFormLayout& form);
    void setFieldType(std::int16_t fieldType);
    // Shows or hides the second value for the operator chosen (its text).
    void followOperator(const QString& choice);
    QString value1() const;
    QString value2() const;

private:
    QLineEdit* value1Box_;
    QLabel* andLabel_;
    QLineEdit* value2Box_;
    FieldKeyFilter* value1Filter_ = nullptr;
    FieldKeyFilter* value2Filter_ = nullptr;
};

} // namespace orbelan
