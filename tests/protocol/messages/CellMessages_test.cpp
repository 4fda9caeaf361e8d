#include "protocol/messages/CellFieldValues.h"
#include "protocol/messages/CellFieldValuesBuilder.h"
#include "protocol/messages/CellFieldValuesRequest.h"
#include "protocol/messages/CellGeometry.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "protocol/messages/ElementBoundingBox.h"
#include "protocol/messages/ElementBoundingBoxRequest.h"
#include "protocol/messages/FieldDefinition.h"
#include "MessageRoundTrip.h"
#include "protocol/messages/ThematicClasses.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace orbelan;
using namespace orbelan::messages;
using Bytes = std::vector<std::uint8_t>;

namespace {

// One metre is about 9e-6 degrees; 1 cm about 9e-8.
constexpr double kCentimetreInDegrees = 0.01 / 111'000.0;

CellGeometry cellAround(double x, double y, double spread)
{
    return {.layer = 4,
            .row = 57,
            .column = 109,
            .elements = {{11, {{x, y}, {x + spread, y - spread}, {x - spread / 3, y + spread / 7}}},
                         {12, {{x + spread / 2, y + spread / 2}}},
                         {13, {}}}};
}

void expectWithinCentimetre(const CellGeometry& sent, const CellGeometry& received)
{
    ASSERT_EQ(received.elements.size(), sent.elements.size());
    for (std::size_t e = 0; e < sent.elements.size(); ++e) {
        const auto& want = sent.elements[e].points;
        const auto& got = received.elements[e].points;
        EXPECT_EQ(received.elements[e].id, sent.elements[e].id);
        ASSERT_EQ(got.size(), want.size());
        for (std::size_t p = 0; p < want.size(); ++p) {
            EXPECT_NEAR(got[p].x, want[p].x, kCentimetreInDegrees);
            EXPECT_NEAR(got[p].y, want[p].y, kCentimetreInDegrees);
        }
    }
}

TEST(CellMessages, RequestsAndRepliesSurviveEveryTruncation)
{
    expectRoundTripAndTruncation(CellGeometryRequest{4, 57, 109});
    expectRoundTripAndTruncation(CellFieldValuesRequest{4, 57, 109, "Año"});
    expectRoundTripAndTruncation(cellAround(-70.65, -33.45, 0.01));
    expectRoundTripAndTruncation(CellFieldValues{4, "USO", {{11, 1}, {12, 2}}, {"Comercial", ""}});
    expectRoundTripAndTruncation(FieldDefinition{4, 2, "STREET", 202});
    expectRoundTripAndTruncation(ThematicClasses{4, {{"1", "10", 255, 0, 1, 0, 1}}});
    expectRoundTripAndTruncation(ElementBoundingBoxRequest{4, 99});
    expectRoundTripAndTruncation(ElementBoundingBox{4, 99, -70.65, -33.46, -70.64, -33.45});
    EXPECT_TRUE(ElementBoundingBox::none(4, 99).empty());
    EXPECT_FALSE((ElementBoundingBox{4, 99, 1.0, 2.0, 1.0, 2.0}.empty()));
}

TEST(CellMessages, RelativeCoordinatesHaveTheWireLayout)
{
    const CellGeometry cell{1, 2, 3, true, {-70.0, -33.0}, {{9, {{-69.5, -33.25}}}}};
    const Bytes expected = {'M', 'I', 'C',  ' ',  59, 0,    0,    0,    102, 0, //
                            1,   0,   0,    0,                                  // layer
                            2,   0,   0,    0,    3,  0,    0,    0,            // row, column
                            1,                                                  // relative
                            0,   0,   0,    0,    0,  0x80, 0x51, 0xC0,         // base x -70
                            0,   0,   0,    0,    0,  0x80, 0x40, 0xC0,         // base y -33
                            1,   0,   0,    0,                                  // one element
                            9,   0,   0,    0,    1,  0,    0,    0,            // id 9, one point
                            0,   0,   0,    0x3F,                               // 0.5
                            0,   0,   0x80, 0xBE};                              // -0.25
    EXPECT_EQ(buildMessage(cell).buffer(), expected);
}

TEST(CellMessages, CoordinatesTravelRelativeOnlyWhenWithinACentimetre)
{
    CellGeometry city = cellAround(-70.6512345678, -33.4498765432, 0.02);
    city.chooseCoordinates();
    EXPECT_TRUE(city.relative);
    expectWithinCentimetre(city, decodeWhole<CellGeometry>(buildMessage(city).buffer()));

    CellGeometry continent = cellAround(-100.123456789, 40.987654321, 30.0);
    continent.chooseCoordinates();
    EXPECT_FALSE(continent.relative);
    EXPECT_EQ(decodeWhole<CellGeometry>(buildMessage(continent).buffer()), continent);

    CellGeometry empty;
    empty.chooseCoordinates();
    EXPECT_FALSE(empty.relative);
}

TEST(CellMessages, EachDistinctValueTravelsOnce)
{
    CellFieldValuesBuilder builder(4, "STREET");
    for (const auto& [id, value] : {std::pair{11, "Alameda"}, {12, "Alameda"}, {13, "Matucana"}, {14, ""}}) {
        builder.add(id, value);
    }
    const CellFieldValues expected{4, "STREET", {{11, 1}, {12, 1}, {13, 2}, {14, 3}}, {"Alameda", "Matucana", ""}};
    EXPECT_EQ(builder.take(), expected);
}

} // namespace
