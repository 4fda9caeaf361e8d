#include "session/CommandDispatcher.h"

#include "session/AccessLoader.h"
#include "session/CellFieldValuesLoader.h"
#include "session/CellGeometryLoader.h"
#include "session/ChangePasswordLoader.h"
#include "session/ElementBoxLoader.h"
#include "session/ElementChangeLoader.h"
#include "session/ElementInformationLoader.h"
#include "session/FindResultLoader.h"
#include "session/LayerDefinitionLoader.h"
#include "session/MapDefinitionLoader.h"
#include "session/ResultTableLoader.h"
#include "session/SaveMapLoader.h"
#include "protocol/messages/MessageIO.h"
#include "protocol/RequestSender.h"
#include "session/SessionEvents.h"
#include "ui/UiServices.h"
#include "protocol/WireReadError.h"

#include <algorithm>
#include <array>
#include <exception>
#include <stdexcept>
#include <string>

namespace orbelan {

namespace {

struct Route {
    CommandCode code;
    // nullptr: the message is accepted and nothing is done with it.
    CommandHandler handler;
};

using enum CommandCode;

constexpr std::array kRoutes = {
    Route{MapDefinition, loadMapDefinition},
    Route{CellGeometry, loadCellGeometry},
    Route{CellFieldValues, loadCellFieldValues},
    Route{FieldDefinition, loadFieldDefinition},
    Route{NoAction107, nullptr},
    Route{NoAction108, nullptr},
    Route{ThematicClasses, loadThematicClasses},
    Route{AccessAnswer, loadAccessAnswer},
    Route{LayerAccessLevels, loadLayerAccessLevels},
    Route{ElementBoundingBox, loadElementBoundingBox},
    Route{ElementChangeNotification, loadElementChange},
    Route{ElementInformation, loadElementInformation},
    Route{FindByConditionResult, loadFindResult},
    Route{ResultTable, loadResultTable},
    Route{ChangePasswordAnswer, loadChangePasswordAnswer},
    Route{SaveMapAnswer, loadSaveMapAnswer},
};

const Route* routeOf(CommandCode code)
{
    const auto found =
        std::find_if(kRoutes.begin(), kRoutes.end(), [code](const Route& route) { return route.code == code; });
    return found == kRoutes.end() ? nullptr : &*found;
}

// The map would not take a value: the rest of the message goes as if it
// were cut.
[[noreturn]] void refuse(const DWBUffer& message, CommandCode code, const std::exception& refused)
{
    throw WireReadError(message.readPosition(), 0, codeNumber(code),
                        std::string("the map refused a value: ") + refused.what());
}

} // namespace

void CommandDispatcher::operator()(DWBUffer& message)
{
    const CommandCode code = messages::readHeader(message);
    const Route* route = routeOf(code);
    if (route == nullptr) {
        notUnderstood();
        return;
    }
    if (route->handler == nullptr) {
        return;
    }
    if (isCounted(code)) {
        context_.requests.replyHandled();
    }
    try {
        route->handler(message, context_);
    } catch (const std::logic_error& refused) {
        // A key given twice, a count past what the map can hold, an index out
        // of range.
        refuse(message, code, refused);
    } catch (const std::overflow_error& refused) {
        // A coordinate beyond what the map can keep.
        refuse(message, code, refused);
    }
}

void CommandDispatcher::notUnderstood() const
{
    context_.ui.messageBox(context_.events.dialogParent(), QStringLiteral("No se entiende el comando\r\nError!"),
                           MessageButtons::OK, MessageIcon::None, QStringLiteral("Proyecto Pelmarito"));
}

} // namespace orbelan
