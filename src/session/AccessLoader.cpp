#include "session/AccessLoader.h"

#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "session/LoadContext.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "model/MapDocument.h"
#include "protocol/RequestSender.h"
#include "session/SessionEvents.h"
#include "session/SessionState.h"
#include "session/StatusList.h"
#include "ui/UiServices.h"

namespace orbelan {

// Refused, the session asks nothing more. Granted again after a
// re-connection, the map that is already here is not asked for again.
void loadAccessAnswer(DWBUffer& message, LoadContext& context)
{
    const messages::AccessAnswer answer = messages::AccessAnswer::decode(message);
    if (!answer.granted()) {
        context.requests.stopSending();
        context.events.changeStatus(0, StatusList::Remove + StatusList::RequestingMap);
        context.ui.messageBox(context.events.dialogParent(), QStringLiteral("Acceso Denegado"), MessageButtons::OK,
                              MessageIcon::Critical, QStringLiteral("Orbelan Viewer"));
        return;
    }
    if (!context.state.mapDefined) {
        sendMessage(context.requests, messages::MapDefinitionRequest{context.document.MapCode});
    }
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
