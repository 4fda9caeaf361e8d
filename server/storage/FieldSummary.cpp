#include "storage/FieldSummary.h"

#include "storage/AttributeTable.h"

#include <QSqlQuery>

namespace orbelan::server {

namespace {

QString columnOf(const messages::FieldRecord& field)
{
    return AttributeTable::quoted(QString::fromStdString(field.name));
}

QString tableOf(std::int32_t layer)
{
    return AttributeTable::quoted(AttributeTable::name(layer));
}

} // namespace

FieldSummary::FieldSummary(Database& database)
    : database_(database)
{
}

std::vector<std::string> FieldSummary::distinctValues(std::int32_t layer, const messages::FieldRecord& field,
                                                      std::size_t limit)
{
    const QString column = columnOf(field);
    QSqlQuery query = database_.prepare(
        QStringLiteral("SELECT DISTINCT %1 FROM %2 WHERE %1 IS NOT NULL ORDER BY %1 LIMIT ?")
            .arg(column, tableOf(layer)));
    Database::runWith(query, {static_cast<qlonglong>(limit)});
    std::vector<std::string> values;
    while (query.next()) {
        values.push_back(AttributeTable::text(query.value(0)));
    }
    return values;
}

// Each of MIN and MAX alone is one step along the column's index.
std::vector<std::string> FieldSummary::range(std::int32_t layer, const messages::FieldRecord& field)
{
    const QString column = columnOf(field);
    QSqlQuery query = database_.prepare(QStringLiteral("SELECT (SELECT MIN(%1) FROM %2), (SELECT MAX(%1) FROM %2)")
                                            .arg(column, tableOf(layer)));
    Database::run(query);
    query.next();
    return {AttributeTable::text(query.value(0)), AttributeTable::text(query.value(1))};
}

} // namespace orbelan::server
