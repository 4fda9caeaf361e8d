#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <functional>

namespace orbelan::server {

// One SQLite connection to the map store (WAL journal, foreign keys on), with
// the schema created when missing. Every statement of the server goes through
// prepare and run, with its values bound, never spliced into the text.
class Database {
public:
    // Opens or creates the file; throws StorageError when that fails.
    explicit Database(const QString& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // A statement prepared once, to be bound and run any number of times.
    QSqlQuery prepare(const QString& sql);
    // Runs a prepared and bound statement; throws StorageError on failure.
    static void run(QSqlQuery& query);
    // Binds the values in order, then runs the statement.
    static void runWith(QSqlQuery& query, const QVariantList& values);
    // Runs a statement without values.
    void execute(const QString& sql);
    // Runs the work in one transaction: committed when it returns, rolled back
    // when it throws (the exception goes on to the caller). Work that is
    // already inside a transaction joins it.
    void transaction(const std::function<void()>& work);

private:
    void configure();
    void installFunctions();

    QString connectionName_;
    QSqlDatabase db_;
    int transactionDepth_ = 0;
};

} // namespace orbelan::server
