#include "storage/AttributeReader.h"

#include "storage/AttributeTable.h"

#include <QStringList>

namespace orbelan::server {

AttributeReader::AttributeReader(Database& database)
    : database_(database)
{
}

// The ids go in as one JSON array, so that a list of any length is one
// bound value and each id an index lookup.
std::vector<AttributeReader::Row> AttributeReader::rows(
    std::int32_t layer, const std::vector<messages::FieldRecord>& columns, const Filter& filter)
{
    QStringList selected{QStringLiteral("a.element_id")};
    for (const messages::FieldRecord& column : columns) {
        selected << QStringLiteral("a.") + AttributeTable::quoted(QString::fromStdString(column.name));
    }
    QStringList clauses;
    QVariantList values;
    if (filter.ids) {
        clauses << QStringLiteral("a.element_id IN (SELECT value FROM json_each(?))");
        values << AttributeTable::idList(*filter.ids);
    }
    for (const ConditionClause& condition : filter.conditions) {
        clauses << QLatin1Char('(') + condition.text + QLatin1Char(')');
        values << condition.values;
    }
    QString sql = QStringLiteral("SELECT %1 FROM %2 a")
                      .arg(selected.join(u", "), AttributeTable::quoted(AttributeTable::name(layer)));
    if (!clauses.isEmpty()) {
        sql += QStringLiteral(" WHERE ") + clauses.join(QStringLiteral(" AND "));
    }
    QSqlQuery query = database_.prepare(sql + QStringLiteral(" ORDER BY a.element_id"));
    Database::runWith(query, values);
    std::vector<Row> rows;
    while (query.next()) {
        Row row{static_cast<std::int32_t>(query.value(0).toLongLong()), {}};
        row.values.reserve(columns.size());
        for (int i = 1; i <= static_cast<int>(columns.size()); ++i) {
            row.values.push_back(AttributeTable::text(query.value(i)));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace orbelan::server
