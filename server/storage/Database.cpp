#include "storage/Database.h"

#include "storage/FieldText.h"
#include "storage/Schema.h"
#include "storage/StorageError.h"

#include <QSqlDriver>
#include <QSqlError>

#include <cstring>

#include <atomic>

namespace orbelan::server {

namespace {

std::atomic<int> connectionCount{0};

std::string describe(const QSqlError& error, const QString& sql)
{
    return (error.text() + QStringLiteral(" [") + sql.simplified() + QStringLiteral("]"))
        .toStdString();
}

} // namespace

Database::Database(const QString& path)
    : connectionName_(QStringLiteral("orbelan-store-%1").arg(++connectionCount))
{
    db_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName_);
    db_.setDatabaseName(path);
    if (!db_.open()) {
        const std::string why = db_.lastError().text().toStdString();
        db_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(connectionName_);
        throw StorageError("cannot open the map store " + path.toStdString() + ": " + why);
    }
    configure();
}

Database::~Database()
{
    db_.close();
    db_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName_);
}

void Database::configure()
{
    installFunctions();
    execute(QStringLiteral("PRAGMA journal_mode = WAL"));
    execute(QStringLiteral("PRAGMA synchronous = NORMAL"));
    execute(QStringLiteral("PRAGMA foreign_keys = ON"));
    execute(QStringLiteral("PRAGMA busy_timeout = 5000"));
    transaction([this] {
        for (const QString& statement : Schema::statements()) {
            execute(statement);
        }
    });
}

// The SQL functions of the store (FieldText) belong to each connection; an
// index made on one of them needs it for every write to its table.
void Database::installFunctions()
{
    const QVariant handle = db_.driver()->handle();
    if (!handle.isValid() || std::strcmp(handle.typeName(), "sqlite3*") != 0 ||
        !FieldText::install(*static_cast<sqlite3* const*>(handle.constData()))) {
        throw StorageError("cannot add the function " + std::string(FieldText::kFunction) +
                           " to the map store");
    }
}

QSqlQuery Database::prepare(const QString& sql)
{
    QSqlQuery query(db_);
    query.setForwardOnly(true);
    if (!query.prepare(sql)) {
        throw StorageError(describe(query.lastError(), sql));
    }
    return query;
}

void Database::run(QSqlQuery& query)
{
    if (!query.exec()) {
        throw StorageError(describe(query.lastError(), query.lastQuery()));
    }
}

void Database::runWith(QSqlQuery& query, const QVariantList& values)
{
    int position = 0;
    for (const QVariant& value : values) {
        query.bindValue(position++, value);
    }
    run(query);
}

void Database::execute(const QString& sql)
{
    QSqlQuery query = prepare(sql);
    run(query);
}

void Database::transaction(const std::function<void()>& work)
{
    if (transactionDepth_ > 0) {
        work();
        return;
    }
    if (!db_.transaction()) {
        throw StorageError(describe(db_.lastError(), QStringLiteral("BEGIN")));
    }
    ++transactionDepth_;
    try {
        work();
    } catch (...) {
        --transactionDepth_;
        db_.rollback();
        throw;
    }
    --transactionDepth_;
    if (!db_.commit()) {
        const std::string why = describe(db_.lastError(), QStringLiteral("COMMIT"));
        db_.rollback();
        throw StorageError(why);
    }
}

} // namespace orbelan::server
