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

void SessionHarness::prepareStreets(layer& streets)
{
    streets.lblField = "NOMBRE";
    streets.ThematicField = "USO";
    streets.ThematicFieldType = 202;
    streets.DirectionField = "DIR";
    streets.ThematicMap().Add(0, 1, 0, 0, 1, "MICanyMIC", "");
    streets.ThematicMap().Add(0, 2, 255, 0, 1, "Comercial", "");
    for (const std::int32_t id : {41, 42, 43}) {
        streets.Entidades.AddEntity(id, std::vector<Vertex>{{-70, -33}, {-70.1, -33.1}}, streets);
    }
}
