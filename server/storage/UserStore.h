#pragma once

#include "protocol/messages/LoginAnswer.h"
#include "storage/Database.h"

#include <QSqlQuery>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orbelan::server {

// The users of the map store as logging in sees them: their names, their
// password hashes and the maps they may open.
class UserStore {
public:
    struct User {
        std::int32_t id = 0;
        std::string name;
        // libsodium's encoded Argon2id hash; empty when no password is set.
        std::string passwordHash;
    };

    explicit UserStore(Database& database);

    std::optional<User> byName(const std::string& name);
    std::optional<User> byId(std::int32_t id);
    // False when there is no such user.
    bool setPasswordHash(const std::string& name, const std::string& hash);
    // The maps the user may open, by code.
    std::vector<messages::LoginAnswer::Map> mapsOf(std::int32_t user);

private:
    std::optional<User> first(QSqlQuery& query, const QVariant& key);

    Database& database_;
    QSqlQuery byName_;
    QSqlQuery byId_;
    QSqlQuery maps_;
};

} // namespace orbelan::server
