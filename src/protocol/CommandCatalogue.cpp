#include "protocol/CommandCatalogue.h"

#include <algorithm>
#include <array>

namespace orbelan {

namespace {

using enum CommandCode;
constexpr auto kToServer = Direction::ClientToServer;
constexpr auto kToClient = Direction::ServerToClient;

constexpr std::array kCatalogue = {
    CommandInfo{MapDefinitionRequest, kToServer, true, "map definition request"},
    CommandInfo{CellGeometryRequest, kToServer, true, "cell geometry request"},
    CommandInfo{ElementInformationRequest, kToServer, true, "element information request"},
    CommandInfo{CellFieldValuesRequest, kToServer, true, "cell field values request"},
    CommandInfo{FieldStatisticsRequest, kToServer, true, "field statistics request"},
    CommandInfo{AccessRequest, kToServer, true, "access request"},
    CommandInfo{LayerAccessLevelsRequest, kToServer, true, "layer access levels request"},
    CommandInfo{Login, kToServer, false, "login"},
    CommandInfo{FindByCondition, kToServer, true, "find by condition"},
    CommandInfo{ConstrainedElementQuery, kToServer, true, "element query with constraints"},
    CommandInfo{ElementBoundingBoxRequest, kToServer, true, "element bounding box request"},
    CommandInfo{ChangePassword, kToServer, false, "change password"},
    CommandInfo{NewPoint, kToServer, false, "new point"},
    CommandInfo{NewPolyline, kToServer, false, "new polyline"},
    CommandInfo{NewPolygon, kToServer, false, "new polygon"},
    CommandInfo{GeometryChange, kToServer, false, "geometry change of an element"},
    CommandInfo{EraseElement, kToServer, false, "erase element"},
    CommandInfo{AttributeUpdate, kToServer, false, "attribute update of one element"},
    CommandInfo{MultipleAttributeUpdate, kToServer, false, "attribute update of several elements"},
    CommandInfo{FindAddress, kToServer, true, "find address"},
    CommandInfo{SaveMap, kToServer, false, "save map"},

    CommandInfo{MapDefinition, kToClient, true, "map definition"},
    CommandInfo{CellGeometry, kToClient, true, "geometry of the elements of one grid cell"},
    CommandInfo{FieldDefinition, kToClient, true, "field definition of a layer"},
    CommandInfo{ElementInformation, kToClient, true, "attribute values of one element"},
    CommandInfo{CellFieldValues, kToClient, true, "field values of the elements of one grid cell"},
    CommandInfo{FieldStatistics, kToClient, true, "field statistics"},
    CommandInfo{NoAction107, kToClient, false, "no action"},
    CommandInfo{NoAction108, kToClient, false, "no action"},
    CommandInfo{ThematicClasses, kToClient, true, "thematic classes of a layer"},
    CommandInfo{AccessAnswer, kToClient, true, "access answer"},
    CommandInfo{LayerAccessLevels, kToClient, true, "layer access levels"},
    CommandInfo{LoginAnswer, kToClient, false, "login answer"},
    CommandInfo{FindByConditionResult, kToClient, true, "find-by-condition result"},
    CommandInfo{ResultTable, kToClient, true, "result table"},
    CommandInfo{ElementBoundingBox, kToClient, true, "element bounding box"},
    CommandInfo{ChangePasswordAnswer, kToClient, false, "change password answer"},
    CommandInfo{FindAddressResult, kToClient, true, "find address result"},
    CommandInfo{SaveMapAnswer, kToClient, false, "save map answer"},
    CommandInfo{ElementChangeNotification, kToClient, false, "element change notification"},
};

} // namespace

std::span<const CommandInfo> commandCatalogue()
{
    return kCatalogue;
}

const CommandInfo* findCommand(std::int16_t code)
{
    const auto found = std::find_if(kCatalogue.begin(), kCatalogue.end(),
                                    [code](const CommandInfo& info) { return codeNumber(info.code) == code; });
    return found == kCatalogue.end() ? nullptr : &*found;
}

bool isCounted(CommandCode code)
{
    const CommandInfo* info = findCommand(codeNumber(code));
    return info != nullptr && info->counted;
}

} // namespace orbelan
