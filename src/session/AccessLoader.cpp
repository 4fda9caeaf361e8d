#include "session/AccessLoader.h"

#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "session/LoadContext.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "model/MapDocument.h"
#include "protocol/RequestSender.h"
#include "session/SessionEvents.h"
#include "ui/UiServices.h"

namespace orbelan {

void loadAccessAnswer(DWBUffer& message, LoadContext& context)
{
    const messages::AccessAnswer answer = messages::AccessAnswer::decode(message);
    if (!answer.granted()) {
        context.ui.messageBox(context.events.dialogParent(), QStringLiteral("Acceso Denegado"), MessageButtons::OK,
                              MessageIcon::Critical, QStringLiteral("Orbelan Viewer"));
        return;
    }
    sendMessage(context.requests, messages::MapDefinitionRequest{context.document.MapCode});
}

// Each level is stored as it is read; ids of layers the map does not have
// are passed over.
void loadLayerAccessLevels(DWBUffer& message, LoadContext& context)
{
    messages::LayerAccessLevels::decodeEach(message, [&context](const messages::LayerAccessLevels::Entry& entry) {
        if (layer* mapLayer = context.document.Layers().Find(entry.layer)) {
            mapLayer->AccessLevel = static_cast<CONSTACCESSLEVEL>(entry.level);
        }
    });
    context.events.zoomToExtents();
}

} // namespace orbelan
