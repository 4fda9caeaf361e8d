#include "AccessAnswer.h"
#include "AccessRequest.h"
#include "LayerAccessLevels.h"
#include "LayerAccessLevelsRequest.h"
#include "MapDefinition.h"
#include "MapDefinitionRequest.h"
#include "MessageRoundTrip.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace orbelan;
using namespace orbelan::messages;
using Bytes = std::vector<std::uint8_t>;

namespace {

LayerRecord streetsLayer()
{
    LayerRecord layer;
    layer.name = "Calles";
    layer.id = 7;
    layer.type = 2;
    layer.minCol = 11;
    layer.minRow = 22;
    layer.maxCol = 33;
    layer.maxRow = 44;
    layer.gridDeltaX = 0.01f;
    layer.gridDeltaY = 0.02f;
    layer.visibility = 2;
    layer.zoomMin = 5.0f;
    layer.zoomMax = 1e37f;
    layer.drawColor = 0x0000FF;
    layer.drawStyle = 1;
    layer.drawWidth = 3;
    layer.fillColor = 0x00FF00;
    layer.fillStyle = 6;
    layer.labelField = "STREET";
    layer.labelZoomMin = 0.5f;
    layer.labelZoomMax = 2.5f;
    layer.labelVisibility = 1;
    layer.labelBold = 1;
    layer.labelColor = 0x808080;
    layer.thematicField = "USO";
    layer.thematicType = 1;
    layer.fields = {{"STREET", 202}, {"DIR", 2}};
    layer.classes = {{"Comercial", "Comercial", 1, 2, 3, 4, 5}};
    return layer;
}

MapDefinition santiagoLike()
{
    MapDefinition map;
    map.name = "Santiago Año 1";
    map.minX = -70.8f;
    map.minY = -33.6f;
    map.maxX = -70.5f;
    map.maxY = -33.3f;
    map.background = 0xFFFFFF;
    map.projection = 81;
    map.layers = {streetsLayer(), LayerRecord{}};
    return map;
}

TEST(StartupMessages, RequestsAndRepliesSurviveEveryTruncation)
{
    expectRoundTripAndTruncation(AccessRequest{3, 12});
    expectRoundTripAndTruncation(AccessAnswer{AccessAnswer::kGranted});
    expectRoundTripAndTruncation(MapDefinitionRequest{12});
    expectRoundTripAndTruncation(santiagoLike());
    expectRoundTripAndTruncation(LayerAccessLevelsRequest{3, {7, 8, -1}});
    expectRoundTripAndTruncation(LayerAccessLevels{{{7, 3}, {8, 0}}});
}

TEST(StartupMessages, AccessRequestHasTheWireLayout)
{
    const Bytes expected = {'M', 'I', 'C', ' ', 18, 0, 0, 0, 10, 0, 3, 0, 0, 0, 0xF4, 1, 0, 0};
    EXPECT_EQ(buildMessage(AccessRequest{3, 500}).buffer(), expected);
}

// The map definition written field by field in wire order, independently of
// the encoder, reads back into the same record.
TEST(StartupMessages, MapDefinitionReadsFieldsInWireOrder)
{
    DWBUffer message;
    message.CrearHeader();
    message.PutInteger(codeNumber(CommandCode::MapDefinition));
    message.PutString("Santiago Año 1");
    for (const float value : {-70.8f, -33.6f, -70.5f, -33.3f}) {
        message.PutSingle(value);
    }
    message.PutLong(0xFFFFFF);
    message.PutInteger(81);
    message.PutInteger(1);
    message.PutString("Calles");
    message.PutLong(7);
    message.PutInteger(2);
    for (const std::int32_t bound : {11, 22, 33, 44}) {
        message.PutLong(bound);
    }
    message.PutSingle(0.01f);
    message.PutSingle(0.02f);
    message.PutInteger(2);
    message.PutSingle(5.0f);
    message.PutSingle(1e37f);
    message.PutLong(0x0000FF);
    message.PutInteger(1);
    message.PutInteger(3);
    message.PutLong(0x00FF00);
    message.PutInteger(6);
    message.PutString("STREET");
    message.PutSingle(0.5f);
    message.PutSingle(2.5f);
    message.PutInteger(1);
    message.PutInteger(1);
    message.PutLong(0x808080);
    message.PutString("USO");
    message.PutInteger(1);
    message.PutInteger(2);
    message.PutString("STREET");
    message.PutInteger(202);
    message.PutString("DIR");
    message.PutInteger(2);
    message.PutInteger(1);
    message.PutString("Comercial");
    message.PutString("Comercial");
    message.PutLong(1);
    message.PutInteger(2);
    message.PutInteger(3);
    message.PutLong(4);
    message.PutInteger(5);
    message.cerrarMensaje(0);

    MapDefinition expected = santiagoLike();
    expected.layers.pop_back();
    EXPECT_EQ(decodeWhole<MapDefinition>(message.buffer()), expected);
}

TEST(StartupMessages, NegativeAndOverstatedCountsAreSafe)
{
    DWBUffer negative;
    negative.CrearHeader();
    negative.PutInteger(codeNumber(CommandCode::LayerAccessLevelsRequest));
    negative.PutLong(3);
    negative.PutInteger(-5);
    negative.cerrarMensaje(0);
    EXPECT_TRUE(decodeWhole<LayerAccessLevelsRequest>(negative.buffer()).layers.empty());

    DWBUffer overstated;
    overstated.CrearHeader();
    overstated.PutInteger(codeNumber(CommandCode::LayerAccessLevelsRequest));
    overstated.PutLong(3);
    overstated.PutInteger(32767);
    overstated.PutLong(7);
    overstated.cerrarMensaje(0);
    EXPECT_THROW(decodeWhole<LayerAccessLevelsRequest>(overstated.buffer()), WireReadError);
}

TEST(StartupMessages, ListsLongerThanTheirCountFieldAreRefused)
{
    LayerAccessLevelsRequest request;
    request.layers.resize(40000);
    DWBUffer message;
    EXPECT_THROW(request.encode(message), std::length_error);
}

} // namespace
