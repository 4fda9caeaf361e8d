#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace orbelan::operatortexts {

// The operators a condition on a field of the type may use, as the find
// dialog offers them: five for text fields, seven for the others.
QStringList findChoices(std::int16_t fieldType);
// The same for a constraint, as the constraint builder offers them.
QStringList constraintChoices(std::int16_t fieldType);
// The operator code of a choice of either list; 0 for any other text.
std::uint8_t codeOf(const QString& choice);

// How a condition reads, as the element list shows it: the field, the
// operator and the first value, quoted and upper-cased for a text field;
// "Between" goes on with " And " and the second value.
QString conditionCaption(const QString& field, std::int16_t fieldType, std::uint8_t op, const QString& value1,
                         const QString& value2);
// How a constraint reads in the list of constraints: the field, the
// operator and the quoted values.
QString constraintLine(const QString& field, std::uint8_t op, const QString& value1, const QString& value2);

} // namespace orbelan::operatortexts
