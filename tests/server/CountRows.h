#pragma once

#include "storage/Database.h"

#include <QSqlQuery>
#include <QString>

#include <cstdint>

// The single number a counting statement returns, -1 when it returns none.
inline std::int64_t countRows(orbelan::server::Database& database, const QString& sql)
{
    QSqlQuery query = database.prepare(sql);
    orbelan::server::Database::run(query);
    return query.next() ? query.value(0).toLongLong() : -1;
}
