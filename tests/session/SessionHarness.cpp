#include "SessionHarness.h"

#include "protocol/WireReadError.h"

using namespace orbelan;

void RecordingSender::sendRequest(CommandCode code, const std::function<void(DWBUffer&)>& writePayload)
{
    if (isCounted(code)) {
        ++pending;
    }
    sent.emplace_back(composeRequest(code, writePayload).bytes());
}

std::vector<DWBUffer> RecordingSender::take()
{
    std::vector<DWBUffer> taken;
    taken.swap(sent);
    return taken;
}

void SessionHarness::deliver(const DWBUffer& message)
{
    DWBUffer received(message.bytes());
    try {
        dispatch(received);
    } catch (const WireReadError&) {
        ++abandoned;
    }
}

DWBUffer SessionHarness::message(CommandCode code, std::initializer_list<std::uint8_t> payload)
{
    DWBUffer built;
    built.CrearHeader();
    built.PutInteger(codeNumber(code));
    for (const std::uint8_t byte : payload) {
        built.PutByte(byte);
    }
    built.cerrarMensaje(0);
    return built;
}

DWBUffer SessionHarness::cutShort(const DWBUffer& message, std::int64_t length)
{
    DWBUffer cut(message.bytes().first(static_cast<std::size_t>(length)));
    cut.cerrarMensaje(0);
    return cut;
}

CommandCode SessionHarness::codeOf(DWBUffer& request)
{
    return messages::readHeader(request);
}
