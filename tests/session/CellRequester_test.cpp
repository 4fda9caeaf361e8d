#include "protocol/messages/CellFieldValuesRequest.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "SessionHarness.h"

#include <set>
#include <utility>

using namespace orbelan;

namespace {

class CellRequesterTest : public SessionHarness {
protected:
    void SetUp() override
    {
        streets.GridDeltaX = streets.GridDeltaY = 1;
        streets.minCol = 0; // rows
        streets.maxCol = 180;
        streets.minRow = 0; // columns
        streets.maxRow = 360;
        streets.AccessLevel = ALViewer;
        streets.setUserVisibility(2);
        streets.lblField = "NOMBRE";
        streets.setUserLabelVisibility(2);
        view.setSize(400, 200);
    }

    // The cells of the geometry and of the field value requests sent.
    std::pair<std::set<std::pair<int, int>>, std::set<std::pair<int, int>>> requestedCells()
    {
        std::set<std::pair<int, int>> geometry;
        std::set<std::pair<int, int>> values;
        for (DWBUffer& request : requests.take()) {
            if (codeOf(request) == CommandCode::CellGeometryRequest) {
                const auto asked = messages::CellGeometryRequest::decode(request);
                EXPECT_EQ(asked.layer, 5);
                EXPECT_TRUE(geometry.insert({asked.row, asked.column}).second) << "a cell twice";
            } else {
                const auto asked = messages::CellFieldValuesRequest::decode(request);
                EXPECT_EQ(asked.field, "NOMBRE");
                EXPECT_TRUE(values.insert({asked.row, asked.column}).second) << "a label cell twice";
            }
        }
        return {geometry, values};
    }

    layer& streets = document.addLayer("Calles", 5, polylinelayer);
};

TEST_F(CellRequesterTest, TheCellsOfTheViewAreRequestedOnce)
{
    ASSERT_TRUE(view.SetView(0, 0, 2, 1));
    cells.requestCellsOfView();
    const auto [geometry, labels] = requestedCells();
    EXPECT_TRUE(geometry.contains({90, 181}));
    EXPECT_EQ(labels, geometry);
    EXPECT_EQ(requests.pending, static_cast<int>(geometry.size() + labels.size()));
    EXPECT_TRUE(events.status.text().contains("Requesting Layer Calles"));

    cells.requestCellsOfView();
    EXPECT_TRUE(requests.sent.empty());
}

// Hidden layers ask for nothing, nor do grids that hold no cell.
TEST_F(CellRequesterTest, LayersThatShowNothingAskForNothing)
{
    ASSERT_TRUE(view.SetView(0, 0, 2, 1));
    streets.setUserVisibility(0);
    cells.requestCellsOfView();
    streets.setUserVisibility(2);
    streets.GridDeltaX = 0;
    cells.requestCellsOfView();
    EXPECT_TRUE(requests.sent.empty());
}

// A view asks for a share of a fine grid at a time, and says so once.
TEST_F(CellRequesterTest, OneViewAsksForAtMostItsShareOfCellsPerLayer)
{
    streets.GridDeltaX = streets.GridDeltaY = 0.001f;
    streets.maxCol = 180'000;
    streets.maxRow = 360'000;
    ASSERT_TRUE(view.SetView(0, 0, 2, 1));
    for (int pass = 1; pass <= 2; ++pass) {
        cells.requestCellsOfView();
        const auto [geometry, labels] = requestedCells();
        EXPECT_EQ(geometry.size() + labels.size(), 2 * 4096u);
        EXPECT_EQ(events.status.text().count("only the first 4096 cells"), 1) << events.status.text().toStdString();
    }
    EXPECT_TRUE(events.status.text().contains("Layer Calles: only the first 4096 cells of this view were requested."));
}

// Cells whose replies are lost count as never asked for; those that arrived
// stay asked for.
TEST_F(CellRequesterTest, LostRepliesLeaveTheirCellsToBeAskedForAgain)
{
    ASSERT_TRUE(view.SetView(0, 0, 2, 1));
    cells.requestCellsOfView();
    auto [geometry, labels] = requestedCells();
    const auto [row, column] = *geometry.begin();
    cells.cellArrived(streets, {row, column});
    cells.valuesArrived(streets, "nombre");
    cells.forgetAwaited();
    cells.requestCellsOfView();
    auto [again, labelsAgain] = requestedCells();
    geometry.erase(geometry.begin());
    EXPECT_EQ(again, geometry);
    EXPECT_EQ(labelsAgain.size(), labels.size() - 1);
}

// A cell's classes are asked for when its geometry arrives: a lost reply of
// them leaves the cell to be asked for again.
TEST_F(CellRequesterTest, ALostReplyOfClassesLeavesItsCellToBeAskedForAgain)
{
    streets.ThematicField = "USO";
    streets.setUserLabelVisibility(0);
    ASSERT_TRUE(view.SetView(0, 0, 2, 1));
    cells.requestCellsOfView();
    const auto geometry = requestedCells().first;
    for (const auto& [row, column] : geometry) {
        cells.cellArrived(streets, {row, column});
        cells.requestFieldValues(streets, {row, column}, "USO");
    }
    requests.take();
    cells.forgetAwaited();
    cells.requestCellsOfView();
    EXPECT_EQ(requestedCells().first, geometry);
}

TEST_F(CellRequesterTest, CellsAskedForAgainKeepTheirOrder)
{
    for (const GridCell& cell : {GridCell{1, 5}, GridCell{2, 6}, GridCell{1, 5}}) {
        streets.CeldaSolicitada(cell.row, cell.column);
    }
    cells.requestCellsAgain(streets);
    std::vector<std::pair<int, int>> asked;
    for (DWBUffer& request : requests.take()) {
        codeOf(request);
        const auto cell = messages::CellGeometryRequest::decode(request);
        asked.emplace_back(cell.row, cell.column);
    }
    EXPECT_EQ(asked, (std::vector<std::pair<int, int>>{{1, 5}, {2, 6}, {1, 5}}));
}

} // namespace
