#include "protocol/messages/CellFieldValuesRequest.h"
#include "protocol/messages/CellGeometry.h"
#include "SessionHarness.h"

#include <utility>

using namespace orbelan;
using messages::CellElement;
using messages::CellGeometry;

namespace {

class CellGeometryLoader : public SessionHarness {
protected:
    static CellGeometry cell(std::vector<CellElement> elements)
    {
        CellGeometry reply;
        reply.layer = 7;
        reply.row = 113;
        reply.column = 2185;
        reply.elements = std::move(elements);
        return reply;
    }

    layer& streets = document.addLayer("Calles", 7, polylinelayer);
};

TEST_F(CellGeometryLoader, RelativeAndAbsoluteCoordinatesArriveAsTheyWereMeant)
{
    CellGeometry offsets = cell({{41, {{-69.5, -33.25}, {-70.0, -33.0}}}});
    offsets.relative = true;
    offsets.base = {-70.0, -33.0};
    reply(offsets);
    // A base point that would move every vertex if it were added.
    CellGeometry absolute = cell({{42, {{-70.123456789012, -33.987654321098}}}, {43, {{1e-9, 179.9}, {-180, -90}}}});
    absolute.base = {5, 5};
    reply(absolute);

    ASSERT_EQ(streets.Entidades.count(), 3);
    EXPECT_EQ(streets.Entidades.Find(41)->GetPoints(), (std::vector<Vertex>{{-69.5, -33.25}, {-70.0, -33.0}}));
    EXPECT_EQ(streets.Entidades.Find(42)->Points()[0], (Vertex{-70.123456789012, -33.987654321098}));
    EXPECT_EQ(streets.Entidades.Find(43)->Points()[1], (Vertex{-180, -90}));
    EXPECT_EQ(streets.Entidades.Item(3)->ID, 43);
}

TEST_F(CellGeometryLoader, ALoadedCellMarksTheLayerAndClearsItsStatus)
{
    cells.requestCell(streets, {113, 2185});
    requests.take();
    EXPECT_EQ(events.status.text(), "Requesting Layer Calles (1)");
    reply(cell({}));
    EXPECT_TRUE(streets.Loaded);
    EXPECT_TRUE(document.layerscargados);
    EXPECT_EQ(events.status.text(), "");
    EXPECT_EQ(requests.pending, 0);
    // No thematic field: nothing more is asked for.
    EXPECT_TRUE(requests.sent.empty());
    // Only the reply that leaves nothing awaited redraws.
    EXPECT_EQ(events.redraws, 1);
    requests.pending = 2;
    reply(cell({}));
    EXPECT_EQ(events.redraws, 1);
}

TEST_F(CellGeometryLoader, AThematicLayerAsksForItsValuesInTheSameCell)
{
    streets.ThematicField = "NIVEL";
    reply(cell({}));
    std::vector<DWBUffer> sent = requests.take();
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(codeOf(sent[0]), CommandCode::CellFieldValuesRequest);
    EXPECT_EQ(messages::CellFieldValuesRequest::decode(sent[0]),
              (messages::CellFieldValuesRequest{7, 113, 2185, "NIVEL"}));
    EXPECT_EQ(events.status.text(), "Requesting Theme Information Calles (1)");
}

TEST_F(CellGeometryLoader, ACutCellKeepsTheElementsReadBeforeTheCut)
{
    streets.ThematicField = "NIVEL";
    const DWBUffer whole = messages::buildMessage(cell({{41, {{-70, -33}}}, {42, {{-71, -34}, {-72, -35}}}}));
    deliver(cutShort(whole, whole.TamanoBuffer() - 8));
    EXPECT_EQ(abandoned, 1);
    EXPECT_NE(streets.Entidades.Find(41), nullptr);
    EXPECT_EQ(streets.Entidades.Find(42), nullptr);
    EXPECT_FALSE(streets.Loaded);
    EXPECT_TRUE(requests.sent.empty());
}

TEST_F(CellGeometryLoader, ACellOfAnUnknownLayerIsCountedOffAndDropped)
{
    CellGeometry stray = cell({{41, {{-70, -33}}}});
    stray.layer = 8;
    stray.elements.front().points.resize(3);
    reply(stray);
    EXPECT_EQ(requests.pending, -1);
    EXPECT_EQ(streets.Entidades.count(), 0);
    EXPECT_FALSE(document.layerscargados);
    EXPECT_EQ(abandoned, 0);
}

// A cell that overstates its counts is read up to its end and no further.
TEST_F(CellGeometryLoader, CountsBeyondTheMessageStopAtItsEnd)
{
    DWBUffer hostile;
    hostile.CrearHeader();
    hostile.PutInteger(codeNumber(CommandCode::CellGeometry));
    hostile.PutLong(7);
    hostile.PutLong(1);
    hostile.PutLong(2);
    hostile.PutByte(1);
    hostile.PutDouble(0);
    hostile.PutDouble(0);
    hostile.PutLong(0x7FFFFFFF);
    hostile.PutLong(41);
    hostile.PutLong(0x7FFFFFFF);
    hostile.PutSingle(1);
    hostile.cerrarMensaje(0);
    deliver(hostile);
    EXPECT_EQ(abandoned, 1);
    EXPECT_EQ(streets.Entidades.count(), 0);
}

} // namespace
