#include "query/OperatorTexts.h"

#include "protocol/FieldTypes.h"
#include "protocol/messages/Condition.h"

#include <array>

namespace orbelan::operatortexts {

namespace {

using namespace messages::conditionop;

struct OperatorText {
    std::uint8_t code;
    const char* caption;
    const char* listed;
};

constexpr std::array kTexts = {
    OperatorText{kEqual, " = ", " = "},
    OperatorText{kStartingWith, " Starting with ", " starting with "},
    OperatorText{kEndingWith, " Ending with ", " ending with "},
    OperatorText{kContaining, " Contains ", " contains "},
    OperatorText{kDifferent, " <> ", " distinct "},
    OperatorText{kLess, " < ", " < "},
    OperatorText{kLessOrEqual, " <= ", " <= "},
    OperatorText{kGreater, " > ", " > "},
    OperatorText{kGreaterOrEqual, " >= ", " >= "},
    OperatorText{kBetween, " Between ", " between "},
};

const OperatorText* textOf(std::uint8_t code)
{
    for (const OperatorText& text : kTexts) {
        if (text.code == code)
            return &text;
    }
    return nullptr;
}

QString quoted(const QString& value)
{
    return QLatin1Char('\'') + value + QLatin1Char('\'');
}

} // namespace

QStringList findChoices(std::int16_t fieldType)
{
    if (IsTextFieldType(fieldType))
        return {"=", "Starting with", "Containing", "Ending with", "Distinct"};
    return {"=", "<", "<=", ">", ">=", "Between", "Distinct"};
}

QStringList constraintChoices(std::int16_t fieldType)
{
    if (IsTextFieldType(fieldType))
        return {"=", "Starting with", "Containing", "Ending with", "Different"};
    return {"=", "Different", "<", "<=", ">", ">=", "Between"};
}

std::uint8_t codeOf(const QString& choice)
{
    static const std::array<QString, 11> kChoices = {
        "", "=", "Starting with", "Ending with", "Containing", "Distinct", "<", "<=", ">", ">=", "Between"};
    if (choice == QLatin1String("Different"))
        return kDifferent;
    for (std::size_t code = kEqual; code < kChoices.size(); ++code) {
        if (kChoices[code] == choice)
            return static_cast<std::uint8_t>(code);
    }
    return 0;
}

QString conditionCaption(const QString& field, std::int16_t fieldType, std::uint8_t op, const QString& value1,
                         const QString& value2)
{
    const OperatorText* text = textOf(op);
    QString caption = field + (text ? QString::fromLatin1(text->caption) : QString());
    caption += IsTextFieldType(fieldType) ? quoted(value1.toUpper()) : value1;
    if (op == kBetween)
        caption += QStringLiteral(" And ") + value2;
    return caption;
}

QString constraintLine(const QString& field, std::uint8_t op, const QString& value1, const QString& value2)
{
    const OperatorText* text = textOf(op);
    QString line = field + (text ? QString::fromLatin1(text->listed) : QString()) + quoted(value1);
    if (op == kBetween)
        line += QStringLiteral(" And ") + quoted(value2);
    return line;
}

} // namespace orbelan::operatortexts
