#pragma once

// Every command code of the protocol, in both directions. Code numbers are
// written here and nowhere else: senders and handlers name them.

#include <cstdint>
#include <span>
#include <string_view>

namespace orbelan {

enum class CommandCode : std::int16_t {
    // Client to server.
    MapDefinitionRequest = 1,
    CellGeometryRequest = 2,
    ElementInformationRequest = 4,
    CellFieldValuesRequest = 5,
    FieldStatisticsRequest = 6,
    AccessRequest = 10,
    LayerAccessLevelsRequest = 11,
    Login = 12,
    FindByCondition = 13,
    ConstrainedElementQuery = 14,
    ElementBoundingBoxRequest = 15,
    ChangePassword = 120,
    NewPoint = 205,
    NewPolyline = 206,
    NewPolygon = 207,
    GeometryChange = 208,
    EraseElement = 210,
    AttributeUpdate = 220,
    MultipleAttributeUpdate = 221,
    FindAddress = 230,
    SaveMap = 240,

    // Server to client.
    MapDefinition = 101,
    CellGeometry = 102,
    FieldDefinition = 103,
    ElementInformation = 104,
    CellFieldValues = 105,
    FieldStatistics = 106,
    NoAction107 = 107,
    NoAction108 = 108,
    ThematicClasses = 109,
    AccessAnswer = 110,
    LayerAccessLevels = 111,
    LoginAnswer = 112,
    FindByConditionResult = 113,
    ResultTable = 114,
    ElementBoundingBox = 115,
    ChangePasswordAnswer = 121,
    FindAddressResult = 231,
    SaveMapAnswer = 241,
    ElementChangeNotification = 250,
};

enum class Direction { ClientToServer, ServerToClient };

struct CommandInfo {
    CommandCode code;
    Direction direction;
    // Counted requests add one to the awaited replies when sent; counted
    // replies take one off when handled.
    bool counted;
    std::string_view name;
};

std::span<const CommandInfo> commandCatalogue();
// The entry of a code, or nullptr for a code the protocol does not have.
const CommandInfo* findCommand(std::int16_t code);
bool isCounted(CommandCode code);

constexpr std::int16_t codeNumber(CommandCode code)
{
    return static_cast<std::int16_t>(code);
}

} // namespace orbelan
