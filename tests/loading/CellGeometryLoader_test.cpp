#include "AccessAnswer.h"
#include "CellFieldValuesRequest.h"
#include "CellGeometry.h"
#include "CellGeometryRequest.h"
#include "LayerAccessLevels.h"
#include "MapDefinition.h"
#include "PlayedServer.h"

#include <QSignalSpy>

#include <utility>

using namespace orbelan;
using messages::CellElement;
using messages::CellGeometry;

namespace {

class CellGeometryLoader : public PlayedServer {
protected:
    void SetUp() override
    {
        PlayedServer::SetUp();
        streets = &viewer.Layers().AddLayer("Calles", 7, polylinelayer, viewer);
    }

    static CellGeometry cell(std::vector<CellElement> elements)
    {
        CellGeometry reply;
        reply.layer = 7;
        reply.row = 113;
        reply.column = 2185;
        reply.elements = std::move(elements);
        return reply;
    }

    layer* streets = nullptr;
};

TEST_F(CellGeometryLoader, RelativeCoordinatesAreOffsetsFromTheBasePoint)
{
    CellGeometry answer = cell({{41, {{-69.5, -33.25}, {-70.0, -33.0}}}});
    answer.relative = true;
    answer.base = {-70.0, -33.0};
    reply(answer);
    const Entidad* street = streets->Entidades.Find(41);
    ASSERT_NE(street, nullptr);
    ASSERT_EQ(street->Points().size(), 2u);
    EXPECT_EQ(street->Points()[0], (Vertex{-69.5, -33.25}));
    EXPECT_EQ(street->Points()[1], (Vertex{-70.0, -33.0}));
}

TEST_F(CellGeometryLoader, AbsoluteCoordinatesArriveAsTheyWereSent)
{
    // A base point that would move every vertex if it were added.
    CellGeometry answer = cell({{41, {{-70.123456789012, -33.987654321098}}},
                                {42, {{1e-9, 179.999999999}, {-180, -90}}}});
    answer.base = {5, 5};
    reply(answer);
    ASSERT_EQ(streets->Entidades.count(), 2);
    EXPECT_EQ(streets->Entidades.Find(41)->Points()[0], (Vertex{-70.123456789012, -33.987654321098}));
    EXPECT_EQ(streets->Entidades.Find(42)->Points()[1], (Vertex{-180, -90}));
    EXPECT_EQ(streets->Entidades.Item(2)->ID, 42);
}

TEST_F(CellGeometryLoader, ALoadedCellMarksTheLayerAndClearsItsStatus)
{
    viewer.RequestCell(7, 113, 2185, "");
    takeRequests(1);
    EXPECT_EQ(viewer.statusText(), "Requesting Map.\nRequesting Layer Calles (1)");
    reply(cell({}));
    EXPECT_TRUE(streets->Loaded);
    EXPECT_TRUE(viewer.layerscargados);
    EXPECT_EQ(viewer.statusText(), "Requesting Map.");
    EXPECT_EQ(viewer.PendingRequests(), 1);
    // No thematic field: nothing more is asked for.
    EXPECT_TRUE(arrivedRequests().empty());
}

TEST_F(CellGeometryLoader, AThematicLayerAsksForItsValuesInTheSameCell)
{
    streets->ThematicField = "NIVEL";
    reply(cell({}));
    std::vector<DWBUffer> sent = takeRequests(1);
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(codeOf(sent[0]), CommandCode::CellFieldValuesRequest);
    EXPECT_EQ(messages::CellFieldValuesRequest::decode(sent[0]),
              (messages::CellFieldValuesRequest{7, 113, 2185, "NIVEL"}));
    EXPECT_TRUE(streets->Loaded);
    EXPECT_EQ(viewer.PendingRequests(), 1);
    EXPECT_EQ(viewer.statusText(), "Requesting Map.\nRequesting Theme Information Calles (1)");
}

TEST_F(CellGeometryLoader, ACutCellKeepsTheElementsReadBeforeTheCut)
{
    streets->ThematicField = "NIVEL";
    const DWBUffer whole = messages::buildMessage(cell({{41, {{-70, -33}}}, {42, {{-71, -34}, {-72, -35}}}}));
    deliver(cutShort(whole, whole.TamanoBuffer() - 8));
    EXPECT_EQ(abandoned.size(), 1);
    EXPECT_NE(streets->Entidades.Find(41), nullptr);
    EXPECT_EQ(streets->Entidades.Find(42), nullptr);
    EXPECT_FALSE(streets->Loaded);
    EXPECT_TRUE(arrivedRequests().empty());
}

TEST_F(CellGeometryLoader, ACellOfAnUnknownLayerIsCountedOffAndDropped)
{
    CellGeometry stray = cell({{41, {{-70, -33}}}});
    stray.layer = 8;
    stray.elements.front().points.resize(3);
    reply(stray);
    EXPECT_EQ(viewer.PendingRequests(), 0);
    EXPECT_EQ(streets->Entidades.count(), 0);
    EXPECT_FALSE(viewer.layerscargados);
    EXPECT_TRUE(abandoned.isEmpty());
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
    EXPECT_EQ(abandoned.size(), 1);
    EXPECT_EQ(streets->Entidades.count(), 0);
}

// The whole road from the access answer to the cells of the first view: the
// map is drawn once when the view is set and once more when the last cell
// has come, however many cells there are.
using FirstView = PlayedServer;

TEST_F(FirstView, TheLastCellRedrawsTheMapOnce)
{
    messages::MapDefinition map;
    map.name = "Centro";
    map.minX = -70.7f;
    map.minY = -33.5f;
    map.maxX = -70.5f;
    map.maxY = -33.4f;
    messages::LayerRecord streets;
    streets.name = "Calles";
    streets.id = 7;
    streets.type = polylinelayer;
    streets.minCol = 0;
    streets.maxCol = 1800;
    streets.minRow = 0;
    streets.maxRow = 3600;
    streets.gridDeltaX = 0.1f;
    streets.gridDeltaY = 0.1f;
    streets.visibility = 2;
    map.layers = {streets};

    reply(messages::AccessAnswer{0});
    reply(map);
    reply(messages::LayerAccessLevels{{{7, ALViewer}}});
    ASSERT_TRUE(viewer.viewport().viewReady());
    const auto awaited = static_cast<std::size_t>(viewer.PendingRequests());
    // The map request and the access levels request come first.
    std::vector<DWBUffer> requests = takeRequests(2 + awaited);
    std::vector<std::pair<std::int32_t, std::int32_t>> cells;
    for (DWBUffer& request : requests) {
        if (codeOf(request) == CommandCode::CellGeometryRequest) {
            const auto asked = messages::CellGeometryRequest::decode(request);
            cells.emplace_back(asked.row, asked.column);
        }
    }
    ASSERT_GE(cells.size(), 2u);
    ASSERT_EQ(viewer.PendingRequests(), static_cast<int>(cells.size()));

    QSignalSpy redrawn(&viewer, &Viewer::MapRedrawn);
    std::int32_t id = 1;
    for (const auto& [row, column] : cells) {
        CellGeometry answer;
        answer.layer = 7;
        answer.row = row;
        answer.column = column;
        answer.elements = {{id++, {{-70.6, -33.45}, {-70.55, -33.42}}}};
        reply(answer);
        EXPECT_EQ(redrawn.size(), viewer.PendingRequests() == 0 ? 1 : 0);
    }
    EXPECT_EQ(redrawn.size(), 1);
    EXPECT_EQ(viewer.Layers().Find(7)->Entidades.count(), static_cast<int>(cells.size()));
    EXPECT_FALSE(viewer.Layers().Find(7)->DrawnIDs().empty());
}

} // namespace
