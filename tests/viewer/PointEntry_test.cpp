// How clicks become points: on a UTM map (zone 19) with one line of two
// vertices 10 metres apart, drawn so that the searches see it.

#include "viewer/PointEntry.h"

#include "model/Layers.h"
#include "model/MapDocument.h"
#include "ui/ScriptedUiServices.h"

#include <QAction>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace orbelan;

namespace {

class PointEntryTest : public ::testing::Test {
protected:
    PointEntryTest()
    {
        view.setSize(400, 200);
        view.setProjection(119);
        view.SetView(-70.61, -33.41, -70.59, -33.39);
        for (QAction* item : {&endPoint, &relativeTo, &smartEndPoint}) {
            item->setCheckable(true);
        }
        street.Visible = true;
        street.Entidades.AddEntity(4, std::vector<Vertex>{start, {-70.6, -33.4}}, street);
        street.AppendDrawnID(4);
    }

    MapPoint projected(const Vertex& point) const
    {
        MapPoint plane;
        view.project(point.X, point.Y, plane);
        return plane;
    }

    // The point a click a little north of the line's start enters, as an
    // offset in metres from that start.
    std::optional<MapPoint> offsetOfClick(double metresEast)
    {
        const MapPoint click = projected(start);
        const auto point = entry.resolve({click.x + metresEast, click.y + 2});
        if (!point) {
            return std::nullopt;
        }
        return MapPoint{projected(*point).x - click.x, projected(*point).y - click.y};
    }

    Viewport view;
    MapDocument document{view};
    layer& street = document.Layers().AddLayer("Calles", 5, polylinelayer, view);
    const Vertex start{-70.6001077, -33.4};
    ScriptedUiServices ui;
    QWidget parent;
    QAction endPoint;
    QAction relativeTo;
    QAction smartEndPoint;
    std::vector<Vertex> marked;
    PointEntry entry{{endPoint, relativeTo, smartEndPoint}, document, view, ui, parent,
                     [this](const Vertex& first, const Vertex&, const Vertex&) { marked.push_back(first); }};
};

// A trip to degrees and back moves a point by some micrometres.
constexpr double kMetreTolerance = 1e-4;

void expectOffset(const std::optional<MapPoint>& offset, double east, double north)
{
    ASSERT_TRUE(offset);
    EXPECT_NEAR(offset->x, east, kMetreTolerance);
    EXPECT_NEAR(offset->y, north, kMetreTolerance);
}

TEST_F(PointEntryTest, RelativeToOffsetsTheNearestVertexForOnePoint)
{
    ui.queueDialog({"dlgRelativeTo", {{"txtXCoord", "10"}, {"txtYCoord", "0"}}, "OKButton"});
    entry.relativeToChosen();
    expectOffset(offsetOfClick(3), 10, 0);
    EXPECT_FALSE(relativeTo.isChecked());
    expectOffset(offsetOfClick(3), 3, 2);

    endPoint.setChecked(true);
    expectOffset(offsetOfClick(3), 0, 0);
    street.Visible = false;
    EXPECT_FALSE(offsetOfClick(3));
}

// The first click picks the segment and asks for the distances; the second
// gets its point and ends the method.
TEST_F(PointEntryTest, SmartEndPointMeasuresAlongThePickedSegment)
{
    ui.queueDialog({"dlgSmartEndPoint", {}, "cmdSelectSegment"});
    entry.smartEndPointChosen();
    ui.queueDialog({"dlgSmartEndPoint", {{"txtLongitudinal", "4"}, {"txtTransversal", "0"}}, "OKButton"});
    EXPECT_FALSE(offsetOfClick(3));
    ASSERT_EQ(marked.size(), 1u);
    EXPECT_EQ(marked.front(), start);
    const auto along = offsetOfClick(8);
    ASSERT_TRUE(along);
    EXPECT_NEAR(std::hypot(along->x, along->y), 4, kMetreTolerance);
    EXPECT_GT(along->x, 3.9);
    EXPECT_FALSE(smartEndPoint.isChecked());
    EXPECT_EQ(ui.queuedDialogs(), 0u);
}

} // namespace
