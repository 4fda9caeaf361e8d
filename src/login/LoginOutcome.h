#pragma once

#include <QList>
#include <QStringList>
#include <QVersionNumber>

#include <cstdint>

namespace orbelan {

class DWBUffer;

// What the server's version tells a client of the given version.
enum class UpdateNotice { None, Recommended, Mandatory };

// What one login reply means for the host: the arguments of LoginResponse
// and the update message to show first.
struct LoginOutcome {
    std::int32_t userId = -1;
    std::int32_t mapCount = -1;
    QStringList mapNames;
    QList<int> mapCodes;
    UpdateNotice notice = UpdateNotice::None;

    // A reply that is not a login answer, or not a whole one.
    static LoginOutcome foreign() { return {}; }
};

// A client older in its major or minor part must update; one older only in
// its revision should. Missing parts of the client's version count as 0.
UpdateNotice updateNotice(const QVersionNumber& server, const QVersionNumber& client);

// Reads a whole reply (read position at byte 1). Another command is foreign;
// a refused login (id below 1) has no maps and a map count of 0; a mandatory
// update gives the id -2 and no maps. A reply that ends too soon is foreign.
LoginOutcome interpretLoginReply(DWBUffer& reply, const QVersionNumber& client);

} // namespace orbelan
