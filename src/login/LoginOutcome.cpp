#include "login/LoginOutcome.h"

#include "protocol/WireReadError.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/MessageIO.h"

namespace orbelan {

namespace {

constexpr std::int32_t kMandatoryUpdate = -2;

LoginOutcome acceptedLogin(const messages::LoginAnswer& answer, UpdateNotice notice)
{
    LoginOutcome outcome{answer.userId, static_cast<std::int32_t>(answer.maps.size()), {}, {}, notice};
    for (const messages::LoginAnswer::Map& map : answer.maps) {
        outcome.mapNames << QString::fromStdString(map.name);
        outcome.mapCodes << map.code;
    }
    return outcome;
}

} // namespace

UpdateNotice updateNotice(const QVersionNumber& server, const QVersionNumber& client)
{
    const auto majorMinor = [](const QVersionNumber& version) {
        return QVersionNumber(version.majorVersion(), version.minorVersion());
    };
    if (majorMinor(client) < majorMinor(server)) {
        return UpdateNotice::Mandatory;
    }
    return majorMinor(client) == majorMinor(server) && client.microVersion() < server.microVersion()
               ? UpdateNotice::Recommended
               : UpdateNotice::None;
}

LoginOutcome interpretLoginReply(DWBUffer& reply, const QVersionNumber& client)
{
    try {
        if (messages::readHeader(reply) != CommandCode::LoginAnswer) {
            return LoginOutcome::foreign();
        }
        const messages::LoginAnswer answer = messages::LoginAnswer::decode(reply);
        if (!answer.accepted()) {
            return {answer.userId, 0, {}, {}, UpdateNotice::None};
        }
        const auto& version = answer.clientVersion;
        const UpdateNotice notice = updateNotice({version.major, version.minor, version.revision}, client);
        if (notice == UpdateNotice::Mandatory) {
            return {kMandatoryUpdate, -1, {}, {}, notice};
        }
        return acceptedLogin(answer, notice);
    } catch (const WireReadError&) {
        return LoginOutcome::foreign();
    }
}

} // namespace orbelan
