#include "load/SignatureCheck.h"

#include "load/MapSurvey.h"
#include "load/WellBehavedClient.h"
#include "load/WireConnection.h"
#include "protocol/messages/CellGeometry.h"

#include <algorithm>
#include <stdexcept>

namespace orbelan::load {

namespace {

// A valid cell request followed by a copy whose signature is "MIX ".
std::vector<std::uint8_t> validThenForged(const messages::CellGeometryRequest& cell)
{
    const auto request = messages::buildMessage(cell);
    std::vector<std::uint8_t> bytes(request.bytes().begin(), request.bytes().end());
    bytes.insert(bytes.end(), request.bytes().begin(), request.bytes().end());
    bytes[request.bytes().size() + 2] = 'X';
    return bytes;
}

bool answeredWithCell(WireConnection& connection)
{
    try {
        DWBUffer reply(connection.receive(SignatureCheck::kTimeout));
        return messages::readHeader(reply) == messages::CellGeometry::kCode;
    } catch (const std::runtime_error&) {
        return false;
    }
}

} // namespace

SignatureCheck::SignatureCheck(const ServerProcess& server) : server_(server) {}

RowResult SignatureCheck::run() const
{
    WireConnection connection(server_.endpoint());
    const auto map = MapSurvey::open(connection, WellBehavedClient::kUser, WellBehavedClient::kMap);
    if (!map || map->cells().empty()) {
        throw std::runtime_error("the Santiago map does not open for user 1");
    }
    connection.send(validThenForged(map->cells().front()));
    const bool answered = answeredWithCell(connection);
    const bool closed = connection.awaitClosed(kTimeout);
    return RowResult::observed(
        "signature", std::string("valid request answered: ") + (answered ? "yes" : "no") +
                           "; connection closed after the wrong signature: " + (closed ? "yes" : "no") + " — " +
                           (answered && closed ? "PASS" : "FAIL"));
}

} // namespace orbelan::load
