#include "protocol/messages/ElementChange.h"
#include "SessionHarness.h"

#include <tuple>

using namespace orbelan;
using messages::ElementChange;

namespace {

class ElementChangeLoader : public SessionHarness {
protected:
    void SetUp() override
    {
        streets.Visible = true;
        for (const char* field : {"ROL", "NOMBRE", "USO", "DIR"}) {
            streets.Campos().Add(field, 202);
        }
        prepareStreets(streets);
    }

    void change(std::int16_t operation, std::int32_t element, std::vector<std::string> values = {},
                std::vector<messages::WirePoint> points = {}, std::int32_t layer = 7)
    {
        ElementChange message;
        message.operation = operation;
        message.layer = layer;
        message.element = element;
        message.values = std::move(values);
        message.points = std::move(points);
        reply(message);
    }

    const Entidad* element(std::int32_t id) const { return streets.Entidades.Find(id); }

    layer& streets = document.addLayer("Calles", 7, polylinelayer);
};

TEST_F(ElementChangeLoader, ElementsAreAddedReplacedMovedAndDeletedWithTheirValues)
{
    change(ElementChange::NewElement, 41, {"9-1", "Alameda", "Comercial", "-1"}, {{-71, -34}, {-71.5, -34.5}});
    EXPECT_EQ(streets.Entidades.count(), 3) << "a new element under a known id replaces it";
    ASSERT_NE(element(41), nullptr);
    EXPECT_EQ(element(41)->bb.MinX, -71.5);
    EXPECT_EQ(std::tuple(element(41)->ThemeCode, element(41)->Direction), std::tuple(2, -1));
    EXPECT_EQ(streets.Labels().count(), 1);

    change(ElementChange::ValuesChanged, 42, {"9-2", "Bandera", "Residencial", "1"});
    EXPECT_EQ(std::tuple(element(42)->ThemeValue, element(42)->Direction), std::tuple("Residencial", 1));
    EXPECT_NE(element(42)->IDLabel, element(41)->IDLabel);

    change(ElementChange::GeometryChanged, 43, {}, {{-72, -35}, {-72.1, -35.1}});
    EXPECT_EQ(std::tuple(element(43)->bb.MinX, element(43)->bb.MaxX), std::tuple(-72.1, -72.0))
        << "the box is the new geometry's, not grown from the old";
    change(ElementChange::Deleted, 42);
    EXPECT_EQ(element(42), nullptr);
    EXPECT_EQ(events.redraws, 4);

    change(ElementChange::GeometryChanged, 99, {}, {{0, 0}});
    change(ElementChange::NewElement, 5, {}, {{0, 0}}, 8);
    EXPECT_EQ(events.redraws, 4) << "an element or a layer the client does not hold changes nothing";
    EXPECT_EQ(abandoned, 0);
    EXPECT_EQ(requests.pending, 0) << "a notification is not a counted reply";
}

TEST_F(ElementChangeLoader, GridBoundsAndCellsToRefresh)
{
    ElementChange bounds{ElementChange::GridBoundsChanged, 7, 0};
    bounds.gridBounds = {1, 2, 3, 4};
    reply(bounds);
    EXPECT_EQ(std::tuple(streets.minCol, streets.minRow, streets.maxCol, streets.maxRow), std::tuple(1, 2, 3, 4));

    streets.DirectionField.clear();
    ElementChange refresh{ElementChange::CellsToRefresh, 7, 0};
    refresh.cellI = {10, 11};
    refresh.cellJ = {20, 21};
    reply(refresh);
    std::vector<DWBUffer> sent = requests.take();
    ASSERT_EQ(sent.size(), 4u) << "label and thematic values of two cells";
    for (DWBUffer& request : sent) {
        EXPECT_EQ(codeOf(request), CommandCode::CellFieldValuesRequest);
    }
}

} // namespace
