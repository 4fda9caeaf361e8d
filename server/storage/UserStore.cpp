#include "storage/UserStore.h"

#include <QVariant>

namespace orbelan::server {

UserStore::UserStore(Database& database)
    : database_(database),
      byName_(database.prepare(
          QStringLiteral("SELECT id, name, password_hash FROM users WHERE name = ?"))),
      byId_(database.prepare(
          QStringLiteral("SELECT id, name, password_hash FROM users WHERE id = ?"))),
      maps_(database.prepare(QStringLiteral(
          "SELECT m.code, m.name FROM maps m JOIN map_access a ON a.map_code = m.code "
          "WHERE a.user_id = ? ORDER BY m.code")))
{
}

std::optional<UserStore::User> UserStore::byName(const std::string& name)
{
    return first(byName_, QString::fromStdString(name));
}

std::optional<UserStore::User> UserStore::byId(std::int32_t id)
{
    return first(byId_, id);
}

std::optional<UserStore::User> UserStore::first(QSqlQuery& query, const QVariant& key)
{
    Database::runWith(query, {key});
    std::optional<User> user;
    if (query.next()) {
        user = User{static_cast<std::int32_t>(query.value(0).toLongLong()),
                    query.value(1).toString().toStdString(),
                    query.value(2).toString().toStdString()};
    }
    query.finish();
    return user;
}

bool UserStore::setPasswordHash(const std::string& name, const std::string& hash)
{
    bool changed = false;
    database_.transaction([&] {
        QSqlQuery update =
            database_.prepare(QStringLiteral("UPDATE users SET password_hash = ? WHERE name = ?"));
        Database::runWith(update, {QString::fromStdString(hash), QString::fromStdString(name)});
        changed = update.numRowsAffected() > 0;
    });
    return changed;
}

std::vector<messages::LoginAnswer::Map> UserStore::mapsOf(std::int32_t user)
{
    Database::runWith(maps_, {user});
    std::vector<messages::LoginAnswer::Map> maps;
    while (maps_.next()) {
        maps.push_back({static_cast<std::int32_t>(maps_.value(0).toLongLong()),
                        maps_.value(1).toString().toStdString()});
    }
    maps_.finish();
    return maps;
}

} // namespace orbelan::server
