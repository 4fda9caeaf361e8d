#include "protocol/messages/CellFieldValues.h"
#include "SessionHarness.h"

#include <utility>
#include <tuple>

using namespace orbelan;
using messages::CellFieldValues;

namespace {

class CellFieldValuesLoader : public SessionHarness {
protected:
    void SetUp() override { prepareStreets(streets); }

    void replyValues(std::string field, std::vector<CellFieldValues::Reference> references,
                     std::vector<std::string> values, std::int32_t layer = 7)
    {
        reply(CellFieldValues{layer, std::move(field), std::move(references), std::move(values)});
    }

    const Entidad& element(std::int32_t id) const { return *streets.Entidades.Find(id); }

    layer& streets = document.addLayer("Calles", 7, polylinelayer);
};

TEST_F(CellFieldValuesLoader, ElementsSharingAValueShareItsLabel)
{
    cells.requestFieldValues(streets, {1, 2}, "NOMBRE");
    EXPECT_EQ(events.status.text(), "Requesting Labels Calles (1)");
    replyValues("nombre", {{41, 1}, {42, 1}, {43, 2}}, {"Alameda", "Bandera"});
    EXPECT_EQ(element(41).IDLabel, element(42).IDLabel);
    EXPECT_NE(element(41).IDLabel, element(43).IDLabel);
    EXPECT_EQ(streets.Labels().count(), 2);
    EXPECT_EQ(events.status.text(), "");
    EXPECT_EQ(requests.pending, 0);
}

TEST_F(CellFieldValuesLoader, ThematicValuesChooseClassesAndDirectionsAreIntegers)
{
    replyValues("USO", {{41, 1}, {42, 2}}, {" Comercial ", "Residencial"});
    EXPECT_EQ(element(41).ThemeValue, " Comercial ");
    EXPECT_EQ(std::tuple(element(41).ThemeCode, element(42).ThemeCode), std::tuple(2, 1));

    streets.Entidades.Find(43)->Direction = 1;
    replyValues("DIR", {{41, 1}, {42, 2}, {43, 3}}, {"-1", "1.5", ""});
    EXPECT_EQ(std::tuple(element(41).Direction, element(42).Direction, element(43).Direction), std::tuple(-1, 2, 0));
    replyValues("DIR", {{41, 1}, {42, 2}, {43, 3}}, {" 1 ", "+1", "2.5"});
    EXPECT_EQ(std::tuple(element(41).Direction, element(42).Direction, element(43).Direction), std::tuple(1, 1, 2));
    EXPECT_EQ(abandoned, 0);
    for (const char* notANumber : {"norte", "+-1", " ", "40000"}) {
        replyValues("DIR", {{41, 1}}, {notANumber});
    }
    EXPECT_EQ(abandoned, 4);
    EXPECT_EQ(element(41).Direction, 1);
}

// Element 0 is told once per reply, for layers of the map only.
TEST_F(CellFieldValuesLoader, AnElementZeroIsReportedAndTheRestStillApplied)
{
    replyValues("NOMBRE", {{0, 1}, {42, 1}, {0, 1}, {99, 1}, {0, 1}}, {"Alameda"});
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(std::tuple(ui.messages().front().text, ui.messages().front().caption),
              std::tuple("Error when loading labels.\r\nLayer: 7, Field: NOMBRE", "Proyecto Pelmarito"));
    EXPECT_EQ(streets.Labels().count(), 1);
    EXPECT_NE(element(42).IDLabel, 0);
    replyValues("NOMBRE", {{0, 1}}, {"Alameda"}, 8);
    EXPECT_EQ(ui.messages().size(), 1u);
}

// A pair of an element the layer does not hold is passed over whatever its
// number; the reply that leaves nothing awaited redraws the map.
TEST_F(CellFieldValuesLoader, AValueNumberOutsideTheListAbandonsTheRest)
{
    requests.pending = 3;
    for (const char* field : {"NOMBRE", "USO", "DIR"}) {
        replyValues(field, {{99, 7}, {41, 1}}, {"1"});
    }
    EXPECT_EQ(std::tuple(abandoned, element(41).ThemeValue, element(41).Direction, events.redraws),
              std::tuple(0, "1", 1, 1));
    replyValues("USO", {{41, 1}, {42, 3}, {43, 1}}, {"Comercial", "Residencial"});
    EXPECT_EQ(abandoned, 1);
    EXPECT_EQ(element(41).ThemeCode, 2);
    EXPECT_TRUE(element(43).ThemeValue.empty());
    // The reply is counted off all the same: the map must not wait for it.
    EXPECT_EQ(requests.pending, -1);
}

} // namespace
