#include "protocol/messages/FieldDefinition.h"
#include "SessionHarness.h"
#include "protocol/messages/ThematicClasses.h"

#include <tuple>

using namespace orbelan;

namespace {

class LayerDefinitionLoader : public SessionHarness {
protected:
    void SetUp() override { streets.ThematicMap().Add(0, 1, 0, 0, 0, "MICanyMIC", ""); }

    layer& streets = document.addLayer("Calles", 7, polylinelayer);
};

// A field of an unknown layer is dropped; a name given twice stops there.
TEST_F(LayerDefinitionLoader, FieldsAreAddedToTheirLayerOnce)
{
    reply(messages::FieldDefinition{8, 1, "NOMBRE", 200});
    reply(messages::FieldDefinition{7, 1, "NOMBRE", 200});
    reply(messages::FieldDefinition{7, 2, "ANCHO", 4});
    EXPECT_EQ(abandoned, 0);
    reply(messages::FieldDefinition{7, 1, "NOMBRE", 3});
    EXPECT_EQ(abandoned, 1);
    ASSERT_EQ(streets.Campos().count(), 2);
    EXPECT_EQ(std::tuple(streets.Campos().Item(1)->Nombre, streets.Campos().Item(1)->Tipo), std::tuple("NOMBRE", 200));
    EXPECT_EQ(streets.Campos().Item(2)->Tipo, 4);
    EXPECT_EQ(requests.pending, -4);
}

TEST_F(LayerDefinitionLoader, ThematicClassesFollowTheDefaultClass)
{
    reply(messages::ThematicClasses{7, {{"A", "", 0xFF, 2, 3, 0xFF00, 6}, {"1", "9.5", 1, 0, 1, 2, 1}}});
    reply(messages::ThematicClasses{8, {{"C", "", 0xFF, 2, 3, 0xFF00, 6}}});
    const ThematicMap& classes = streets.ThematicMap();
    ASSERT_EQ(classes.count(), 3);
    EXPECT_EQ(classes.Item(1)->min, "MICanyMIC");
    const Theme& first = *classes.Item(2);
    EXPECT_EQ(std::tuple(first.min, first.DrawColor, first.DrawStyle, first.DrawWidth),
              std::tuple("A", 0xFF, 2, 3));
    EXPECT_EQ(std::tuple(first.FillColor, first.FillStyle), std::tuple(0xFF00, 6));
    EXPECT_EQ(classes.Item(3)->max, "9.5");
}

TEST_F(LayerDefinitionLoader, ACutListOfClassesKeepsTheClassesRead)
{
    const DWBUffer whole = messages::buildMessage(
        messages::ThematicClasses{7, {{"A", "", 1, 0, 1, 2, 1}, {"B", "", 1, 0, 1, 2, 1}}});
    deliver(cutShort(whole, whole.TamanoBuffer() - 1));
    EXPECT_EQ(abandoned, 1);
    ASSERT_EQ(streets.ThematicMap().count(), 2);
    EXPECT_EQ(streets.ThematicMap().Item(2)->min, "A");
}

} // namespace
