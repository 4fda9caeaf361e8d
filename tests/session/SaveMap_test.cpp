#include "protocol/messages/SaveMapAnswer.h"
#include "session/SaveMapRequestBuilder.h"
#include "SessionHarness.h"

#include <tuple>

using namespace orbelan;

namespace {

using SaveMap = SessionHarness;
using Bytes = std::vector<std::uint8_t>;

// A one-layer map whose layer holds only its default class.
void prepareRiver(MapDocument& document)
{
    document.MapCode = 5;
    document.mapExtent.MinX = -1;
    document.mapExtent.MinY = -1;
    document.mapExtent.MaxX = 2;
    document.mapExtent.MaxY = 2;
    document.BackgroundColor = 0xFFFFFF;
    document.Projection = 0;
    layer& river = document.addLayer("Rio", 7, polylinelayer);
    river.minCol = 1;
    river.minRow = 2;
    river.maxCol = 3;
    river.maxRow = 4;
    river.GridDeltaX = 0.5f;
    river.GridDeltaY = 0.5f;
    river.setUserVisibility(2);
    river.ZoomMin = 0;
    river.ZoomMax = 2;
    river.ThematicMap().Add(1, 3, 0xFF, 0x00FF00, 6, "MICanyMIC", "");
    river.lblField = "N";
    river.lblZoomMin = 0.5f;
    river.lblZoomMax = 1;
    river.setUserLabelVisibility(1);
    river.lblBold = true;
    river.lblColor = 0x808080;
}

TEST_F(SaveMap, RequestIsLaidOutFieldByFieldAndWaitsForTheMapToLoad)
{
    prepareRiver(document);
    requests.pending = 1;
    requestSaveMap(requests, document, 3, "Mi");
    EXPECT_TRUE(requests.take().empty());

    requests.pending = 0;
    requestSaveMap(requests, document, 3, "Mi");
    const Bytes expected = {
        'M', 'I', 'C', ' ', 130, 0, 0, 0, 240, 0,
        // user, map, name, extent, background, projection, one layer
        3, 0, 0, 0, 5, 0, 0, 0, 2, 0, 'M', 'i', 0, 0, 0x80, 0xBF, 0, 0, 0x80, 0xBF, 0, 0, 0, 0x40, 0, 0, 0, 0x40,
        0xFF, 0xFF, 0xFF, 0, 0, 0, 1, 0,
        // name, id, type, grid bounds and deltas, visibility, zoom range
        3, 0, 'R', 'i', 'o', 7, 0, 0, 0, 2, 0, 1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 0x3F,
        0, 0, 0, 0x3F, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0x40,
        // default class: draw colour, style, width, fill colour, style
        0xFF, 0, 0, 0, 1, 0, 3, 0, 0, 0xFF, 0, 0, 6, 0,
        // label field, zoom range, visibility, bold as -1, colour
        1, 0, 'N', 0, 0, 0, 0x3F, 0, 0, 0x80, 0x3F, 1, 0, 0xFF, 0xFF, 0x80, 0x80, 0x80, 0,
        // thematic field and type, class count 0
        0, 0, 0, 0, 0, 0};
    std::vector<DWBUffer> sent = requests.take();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].buffer(), expected);
    EXPECT_EQ(requests.pending, 0);
}

// The count is the classes less one; every class valued "MICanyMIC" stays out.
TEST_F(SaveMap, ClassesAfterTheDefaultOneGoInCollectionOrder)
{
    prepareStreets(document.addLayer("Calles", 101, polylinelayer));
    ThematicMap& themes = document.Layers().Item(1)->ThematicMap();
    themes.Add(0, 1, 7, 0, 1, "MICanyMIC", "");
    themes.Add(2, 4, 9, 8, 3, "10", "20");
    themes.Item(1)->DrawColor = 0x123456;

    const messages::SaveMapRequest request = buildSaveMapRequest(document, 3, "Mi mapa");
    ASSERT_EQ(request.layers.size(), 1u);
    const messages::SavedLayerRecord& streets = request.layers[0];
    EXPECT_EQ(streets.classCount, 3);
    EXPECT_EQ(streets.settings.drawColor, 0x123456);
    const std::vector<messages::ThematicClassRecord> expected = {{"Comercial", "", 255, 0, 2, 0, 1},
                                                                 {"10", "20", 9, 2, 4, 8, 3}};
    EXPECT_EQ(streets.settings.classes, expected);
}

// 0, 1 and 1000 are told in a plain box captioned "Orbelan"; any other
// result shows nothing.
TEST_F(SaveMap, AnswerTellsSavedInvalidNameOrUnexpectedError)
{
    for (const int result : {0, 1, 1000, 2}) {
        reply(messages::SaveMapAnswer{static_cast<std::int16_t>(result)});
    }
    ASSERT_EQ(ui.messages().size(), 3u);
    const auto shown = [this](std::size_t index) {
        const ShownMessage& box = ui.messages()[index];
        EXPECT_EQ(std::tuple(box.caption, box.icon, box.buttons),
                  std::tuple("Orbelan", MessageIcon::None, MessageButtons::OK));
        return box.text;
    };
    EXPECT_EQ(shown(0), "Mapa guardado con éxito!");
    EXPECT_EQ(shown(1), "Nombre Inválido. Intente de nuevo");
    EXPECT_EQ(shown(2), "Error inesperado.");
}

} // namespace
