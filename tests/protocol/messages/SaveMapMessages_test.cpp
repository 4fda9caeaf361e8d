#include "protocol/messages/SaveMapAnswer.h"
#include "protocol/messages/SaveMapRequest.h"
#include "MessageRoundTrip.h"

#include <gtest/gtest.h>

using namespace orbelan;
using namespace orbelan::messages;

namespace {

SavedLayerRecord parcels()
{
    SavedLayerRecord record;
    record.settings = {.name = "Predios", .id = 9, .type = 4, .minCol = 1, .minRow = 2, .maxCol = 3, .maxRow = 4,
                       .gridDeltaX = 0.01f, .gridDeltaY = 0.02f, .visibility = 2, .zoomMin = 1.5f,
                       .zoomMax = 80.0f, .drawColor = 0x0000FF, .drawStyle = 1, .drawWidth = 2,
                       .fillColor = 0x00FF00, .fillStyle = 6, .labelField = "ROL", .labelZoomMin = 0.5f,
                       .labelZoomMax = 2.5f, .labelVisibility = 1, .labelBold = -1, .labelColor = 0x808080,
                       .thematicField = "USO", .thematicType = 1,
                       .classes = {{"Comercial", "", 1, 2, 3, 4, 5}, {"10", "20", 6, 0, 1, 7, 1}}};
    record.classCount = 2;
    return record;
}

TEST(SaveMapMessages, RequestAndAnswerSurviveEveryTruncation)
{
    const MapDefinition definition{.name = "Mi mapa", .minX = -70.8f, .minY = -33.6f, .maxX = -70.5f,
                                   .maxY = -33.3f, .background = 0xFFFFFF, .projection = 81};
    expectRoundTripAndTruncation(SaveMapRequest{3, 1, definition, {parcels(), SavedLayerRecord{}}});
    expectRoundTripAndTruncation(SaveMapAnswer{SaveMapAnswer::kInvalidName});
}

// Inside a saved class the style comes first and the two values last.
TEST(SaveMapMessages, AClassEndsWithItsTwoValues)
{
    SavedLayerRecord record = parcels();
    record.settings.classes.resize(1);
    record.classCount = 1;
    DWBUffer message;
    record.encode(message);
    const std::vector<std::uint8_t>& bytes = message.buffer();
    const std::vector<std::uint8_t> tail = {1, 0, 0, 0, 2, 0, 3, 0, 4, 0, 0, 0, 5, 0, 9, 0,
                                            'C', 'o', 'm', 'e', 'r', 'c', 'i', 'a', 'l', 0, 0};
    ASSERT_GT(bytes.size(), tail.size() + 2);
    EXPECT_EQ(std::vector<std::uint8_t>(bytes.end() - static_cast<std::ptrdiff_t>(tail.size()), bytes.end()), tail);
    EXPECT_EQ(bytes[bytes.size() - tail.size() - 2], 1);
}

} // namespace
