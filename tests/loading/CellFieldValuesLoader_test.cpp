#include "CellFieldValues.h"
#include "PlayedServer.h"

#include <utility>

using namespace orbelan;
using messages::CellFieldValues;

namespace {

class CellFieldValuesLoader : public PlayedServer {
protected:
    void SetUp() override
    {
        PlayedServer::SetUp();
        streets = &viewer.Layers().AddLayer("Calles", 7, polylinelayer, viewer);
        streets->lblField = "NOMBRE";
        streets->ThematicField = "USO";
        streets->ThematicFieldType = 202;
        streets->DirectionField = "DIR";
        streets->ThematicMap().Add(0, 1, 0, 0, 1, "MICanyMIC", "");
        streets->ThematicMap().Add(0, 2, 255, 0, 1, "Comercial", "");
        for (const std::int32_t id : {41, 42, 43}) {
            streets->Entidades.AddEntity(id, std::vector<Vertex>{{-70, -33}, {-70.1, -33.1}}, *streets);
        }
    }

    void replyValues(std::string field, std::vector<CellFieldValues::Reference> references,
                     std::vector<std::string> values)
    {
        CellFieldValues answer;
        answer.layer = 7;
        answer.field = std::move(field);
        answer.references = std::move(references);
        answer.values = std::move(values);
        reply(answer);
    }

    const Entidad& element(std::int32_t id) const { return *streets->Entidades.Find(id); }

    layer* streets = nullptr;
};

TEST_F(CellFieldValuesLoader, ElementsSharingAValueShareItsLabel)
{
    replyValues("nombre", {{41, 1}, {42, 1}, {43, 2}}, {"Alameda", "Bandera"});
    EXPECT_EQ(element(41).IDLabel, element(42).IDLabel);
    EXPECT_NE(element(41).IDLabel, element(43).IDLabel);
    EXPECT_EQ(streets->Labels().count(), 2);
    EXPECT_EQ(viewer.statusText(), "Requesting Map.");
}

TEST_F(CellFieldValuesLoader, ThematicValuesChooseTheElementsClasses)
{
    replyValues("USO", {{41, 1}, {42, 2}}, {" Comercial ", "Residencial"});
    EXPECT_EQ(element(41).ThemeValue, " Comercial ");
    EXPECT_EQ(element(41).ThemeCode, 2);
    EXPECT_EQ(element(42).ThemeCode, 1);
}

TEST_F(CellFieldValuesLoader, DirectionsAreIntegersAndEmptyMeansNone)
{
    streets->Entidades.Find(43)->Direction = 1;
    replyValues("DIR", {{41, 1}, {42, 2}, {43, 3}}, {"-1", "1", ""});
    EXPECT_EQ(element(41).Direction, -1);
    EXPECT_EQ(element(42).Direction, 1);
    EXPECT_EQ(element(43).Direction, 0);
}

TEST_F(CellFieldValuesLoader, AnElementZeroIsReportedAndTheRestStillApplied)
{
    replyValues("NOMBRE", {{0, 1}, {42, 1}, {99, 1}}, {"Alameda"});
    ASSERT_EQ(ui.messages().size(), 1u);
    EXPECT_EQ(ui.messages().front().text, "Error when loading labels.\r\nLayer: 7, Field: NOMBRE");
    EXPECT_EQ(streets->Labels().count(), 1);
    EXPECT_NE(element(42).IDLabel, 0);
}

TEST_F(CellFieldValuesLoader, AValueNumberOutsideTheListAbandonsTheRest)
{
    replyValues("USO", {{41, 1}, {42, 3}, {43, 1}}, {"Comercial", "Residencial"});
    EXPECT_EQ(element(41).ThemeCode, 2);
    EXPECT_TRUE(element(43).ThemeValue.empty());
    // The reply is counted off all the same: the map must not wait for it.
    EXPECT_EQ(viewer.PendingRequests(), 0);
}

} // namespace
