#include "AccessLoader.h"

#include "AccessAnswer.h"
#include "MapDefinitionRequest.h"
#include "MessageIO.h"
#include "SendMessage.h"
#include "UiServices.h"
#include "Viewer.h"

#include <cstdint>

namespace orbelan {

void loadAccessAnswer(DWBUffer& message, ServerConnection& connection, Viewer& viewer)
{
    connection.replyHandled();
    const messages::AccessAnswer answer = messages::AccessAnswer::decode(message);
    if (!answer.granted()) {
        viewer.uiServices().messageBox(&viewer, QStringLiteral("Acceso Denegado"), MessageButtons::OK,
                                       MessageIcon::Critical, QStringLiteral("Orbelan Viewer"));
        return;
    }
    sendMessage(connection, messages::MapDefinitionRequest{viewer.MapCode()});
}

// Each level is stored as it is read; ids of layers the map does not have
// are passed over.
void loadLayerAccessLevels(DWBUffer& message, ServerConnection& connection, Viewer& viewer)
{
    connection.replyHandled();
    const std::size_t count = messages::recordCount(message.GetInteger());
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t id = message.GetLong();
        const std::int16_t level = message.GetInteger();
        if (layer* mapLayer = viewer.Layers().Find(id)) {
            mapLayer->AccessLevel = static_cast<CONSTACCESSLEVEL>(level);
        }
    }
    viewer.ZoomExtents();
}

} // namespace orbelan
