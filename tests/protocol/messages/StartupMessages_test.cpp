#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/ChangePasswordAnswer.h"
#include "protocol/messages/ChangePasswordRequest.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/LoginRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "MessageRoundTrip.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace orbelan;
using namespace orbelan::messages;
using Bytes = std::vector<std::uint8_t>;

namespace {

LayerRecord streetsLayer()
{
    return {.name = "Calles", .id = 7, .type = 2, .minCol = 11, .minRow = 22, .maxCol = 33, .maxRow = 44,
            .gridDeltaX = 0.01f, .gridDeltaY = 0.02f, .visibility = 2, .zoomMin = 5.0f, .zoomMax = 1e37f,
            .drawColor = 0x0000FF, .drawStyle = 1, .drawWidth = 3, .fillColor = 0x00FF00, .fillStyle = 6,
            .labelField = "STREET", .labelZoomMin = 0.5f, .labelZoomMax = 2.5f, .labelVisibility = 2,
            .labelBold = 1, .labelColor = 0x808080, .thematicField = "USO", .thematicType = 1,
            .fields = {{"STREET", 202}, {"DIR", 2}}, .classes = {{"Comercial", "Comercial", 1, 2, 3, 4, 5}}};
}

MapDefinition santiagoLike()
{
    return {.name = "Santiago Año 1", .minX = -70.8f, .minY = -33.6f, .maxX = -70.5f, .maxY = -33.3f,
            .background = 0xFFFFFF, .projection = 81, .layers = {streetsLayer(), LayerRecord{}}};
}

TEST(StartupMessages, RequestsAndRepliesSurviveEveryTruncation)
{
    expectRoundTripAndTruncation(AccessRequest{3, 12});
    expectRoundTripAndTruncation(AccessAnswer{AccessAnswer::kGranted});
    expectRoundTripAndTruncation(MapDefinitionRequest{12});
    expectRoundTripAndTruncation(santiagoLike());
    expectRoundTripAndTruncation(LoginRequest{"admin", "contraseña"});
    expectRoundTripAndTruncation(LoginAnswer{1, {1, 4, 7}, {{1, "Santiago"}, {3, "World"}}});
    expectRoundTripAndTruncation(ChangePasswordRequest{1, "old", "new"});
    expectRoundTripAndTruncation(ChangePasswordAnswer{ChangePasswordAnswer::kChanged});
    expectRoundTripAndTruncation(LayerAccessLevelsRequest{3, {7, 8, -1}});
    expectRoundTripAndTruncation(LayerAccessLevels{{{7, 3}, {8, 0}}});
}

TEST(StartupMessages, ARefusedLoginIsItsUserIdAlone)
{
    const Bytes bytes = buildMessage(LoginAnswer::refused()).buffer();
    EXPECT_EQ(bytes.size(), 14u);
    EXPECT_FALSE(decodeWhole<LoginAnswer>(bytes).accepted());
}

// Wire fields by type: Integer, Long, Single and String.
struct Integer { std::int16_t value; };
struct Long { std::int32_t value; };

void put(DWBUffer& message, Integer field) { message.PutInteger(field.value); }
void put(DWBUffer& message, Long field) { message.PutLong(field.value); }
void put(DWBUffer& message, float field) { message.PutSingle(field); }
void put(DWBUffer& message, const char* field) { message.PutString(field); }

// The map definition written field by field in wire order, independently of
// the encoder, reads back into the same record.
TEST(StartupMessages, MapDefinitionReadsFieldsInWireOrder)
{
    DWBUffer message;
    message.CrearHeader();
    const auto fields = [&message](auto... values) { (put(message, values), ...); };
    fields(Integer{codeNumber(CommandCode::MapDefinition)}, "Santiago Año 1", -70.8f, -33.6f, -70.5f, -33.3f,
           Long{0xFFFFFF}, Integer{81}, Integer{1});
    // The layer: name, id, type, grid bounds and deltas, visibility and zooms.
    fields("Calles", Long{7}, Integer{2}, Long{11}, Long{22}, Long{33}, Long{44}, 0.01f, 0.02f, Integer{2}, 5.0f,
           1e37f);
    // Drawing, then the label, then the thematic field and type.
    fields(Long{0x0000FF}, Integer{1}, Integer{3}, Long{0x00FF00}, Integer{6}, "STREET", 0.5f, 2.5f, Integer{2},
           Integer{1}, Long{0x808080}, "USO", Integer{1});
    // Two fields with their types, one class.
    fields(Integer{2}, "STREET", Integer{202}, "DIR", Integer{2}, Integer{1}, "Comercial", "Comercial", Long{1},
           Integer{2}, Integer{3}, Long{4}, Integer{5});
    message.cerrarMensaje(0);

    MapDefinition expected = santiagoLike();
    expected.layers.pop_back();
    EXPECT_EQ(decodeWhole<MapDefinition>(message.buffer()), expected);
}

TEST(StartupMessages, ListsLongerThanTheirCountFieldAreRefused)
{
    LayerAccessLevelsRequest request;
    request.layers.resize(40000);
    DWBUffer message;
    EXPECT_THROW(request.encode(message), std::length_error);
}

} // namespace
