#include "storage/ConditionClause.h"

#include "protocol/FieldTypes.h"
#include "protocol/FieldValueText.h"
#include "protocol/messages/Condition.h"
#include "storage/AttributeTable.h"
#include "storage/FieldText.h"

namespace orbelan::server {

namespace {

namespace op = messages::conditionop;

bool numeric(std::int16_t type)
{
    const WireType wire = wireTypeOf(type);
    return wire != WireType::String && wire != WireType::None;
}

bool textOperator(std::uint8_t code)
{
    return code == op::kStartingWith || code == op::kEndingWith || code == op::kContaining;
}

// The comparison of a subject with one or two placeholders.
QString comparison(std::uint8_t code, const QString& subject)
{
    switch (code) {
    case op::kEqual:
        return subject + QStringLiteral(" = ?");
    case op::kDifferent:
        return subject + QStringLiteral(" <> ?");
    case op::kLess:
        return subject + QStringLiteral(" < ?");
    case op::kLessOrEqual:
        return subject + QStringLiteral(" <= ?");
    case op::kGreater:
        return subject + QStringLiteral(" > ?");
    case op::kGreaterOrEqual:
        return subject + QStringLiteral(" >= ?");
    case op::kBetween:
        return subject + QStringLiteral(" BETWEEN ? AND ?");
    default:
        // Starting with, ending with, containing: the pattern's wildcards
        // are put by patternOf, the operand's own are escaped.
        return subject + QStringLiteral(" LIKE ? ESCAPE '\\'");
    }
}

// The LIKE pattern of a text operator. Both sides are folded, so that LIKE's
// own disregard of ASCII case changes nothing.
QString patternOf(std::uint8_t code, const QString& folded)
{
    QString literal = folded;
    literal.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
        .replace(QLatin1Char('%'), QStringLiteral("\\%"))
        .replace(QLatin1Char('_'), QStringLiteral("\\_"));
    const QString any = QStringLiteral("%");
    switch (code) {
    case op::kStartingWith:
        return literal + any;
    case op::kEndingWith:
        return any + literal;
    default:
        return any + literal + any;
    }
}

// What the placeholders of the comparison take, in order.
QVariantList operands(std::uint8_t code, const QVariant& first, const QVariant& second)
{
    if (code == op::kBetween) {
        return {first, second};
    }
    if (textOperator(code)) {
        return {patternOf(code, first.toString())};
    }
    return {first};
}

QString foldedText(const std::string& value)
{
    return QString::fromStdString(FieldText::folded(value));
}

} // namespace

std::optional<ConditionClause> ConditionClause::of(const messages::FieldRecord& field,
                                                   std::uint8_t code, const std::string& value1,
                                                   const std::string& value2,
                                                   std::string& refusal)
{
    if (!op::isComparison(code)) {
        refusal = "unknown operator " + std::to_string(code);
        return std::nullopt;
    }
    const QString column =
        QStringLiteral("a.") + AttributeTable::quoted(QString::fromStdString(field.name));
    const QString folded = FieldText::of(column);
    if (!numeric(field.type)) {
        return ConditionClause{comparison(code, folded),
                               operands(code, foldedText(value1), foldedText(value2))};
    }
    const std::optional<double> first = parseNumber(value1);
    const std::optional<double> second = code == op::kBetween ? parseNumber(value2) : first;
    if (!first || !second) {
        refusal = "\"" + (first ? value2 : value1) + "\" is not a number";
        return std::nullopt;
    }
    if (textOperator(code)) {
        const QString typed = foldedText(value1).trimmed();
        return ConditionClause{comparison(code, folded), operands(code, typed, {})};
    }
    return ConditionClause{comparison(code, column), operands(code, *first, *second)};
}

} // namespace orbelan::server
