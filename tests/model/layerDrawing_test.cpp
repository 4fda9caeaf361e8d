#include "FakeViewer.h"
#include "RecordingCanvas.h"
#include "model/layer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>
#include <tuple>

using orbelan::BoundingBox;
using orbelan::layer;
using orbelan::Theme;
using orbelan::Vertex;

namespace {

using IDs = std::vector<std::int32_t>;

BoundingBox box(double west, double south, double east, double north)
{
    BoundingBox b;
    b.Union(west, south, east, north);
    return b;
}

// A visible line layer whose entity k runs from (k, 0) to (k, 1), drawn for
// a view from 0 to 10 east.
class layerDrawing : public ::testing::Test {
protected:
    layerDrawing()
    {
        map.Tipo = orbelan::polylinelayer;
        map.AccessLevel = orbelan::ALViewer;
        map.setUserVisibility(2);
        map.ThematicMap().Add(0, 1, 0xFF0000, 0xC0C000, 0, "MICanyMIC", "");
    }

    orbelan::Entidad& add(std::int32_t id, double x)
    {
        const std::vector<Vertex> line = {{x, 0}, {x, 1}};
        return map.Entidades.AddEntity(id, line, map);
    }

    IDs redraw()
    {
        canvas.calls.clear();
        map.Redraw(view, canvas);
        return canvas.drawnFirstX();
    }

    FakeViewer viewer;
    layer map{viewer};
    RecordingCanvas canvas;
    BoundingBox view = box(0, -1, 10, 2);
};

TEST_F(layerDrawing, ArrivalsAreDrawnOverWhatIsOnScreenThenTheNextRedrawIsComplete)
{
    add(1, 1);
    add(2, 2);
    EXPECT_EQ(redraw(), (IDs{1, 2}));
    add(3, 3);
    EXPECT_EQ(redraw(), (IDs{1, 2, 3}));
    // Drawn before: from stored points, keeping the surface's line style.
    EXPECT_EQ(std::tuple(canvas.calls[0].setLineStyle, canvas.calls[1].setLineStyle, canvas.calls[2].setLineStyle),
              std::tuple(false, false, true));
    EXPECT_EQ(map.DrawnIDs(), (IDs{1, 2, 3}));

    EXPECT_EQ(redraw(), (IDs{1, 2, 3}));
    for (const RecordingCanvas::Call& call : canvas.calls) {
        EXPECT_TRUE(call.setLineStyle);
    }
    EXPECT_EQ(map.DrawnIDs(), (IDs{1, 2, 3}));
}

TEST_F(layerDrawing, OnlyEntitiesTheViewMeetsAreDrawnAndListed)
{
    orbelan::Entidad& outside = add(1, 20);
    add(2, 2);
    redraw();
    EXPECT_EQ(redraw(), (IDs{2}));
    EXPECT_EQ(map.DrawnIDs(), (IDs{2}));
    EXPECT_TRUE(outside.ScreenPoints().empty());
}

TEST_F(layerDrawing, AHiddenOrMissedLayerEmptiesDrawnIDs)
{
    add(1, 1);
    redraw();
    map.setUserVisibility(0);
    EXPECT_TRUE(redraw().empty());
    EXPECT_FALSE(map.Visible);
    EXPECT_TRUE(map.DrawnIDs().empty());

    map.setUserVisibility(2);
    redraw();
    view = box(50, 50, 60, 60);
    EXPECT_TRUE(redraw().empty());
    EXPECT_TRUE(map.DrawnIDs().empty());
}

TEST_F(layerDrawing, RedrawWOCalcDrawsTheListAgainAndLeavesIt)
{
    add(1, 1);
    redraw();
    add(2, 2); // arrived, but only a Redraw takes it
    canvas.calls.clear();
    map.RedrawWOCalc(view, canvas);
    EXPECT_EQ(canvas.drawnFirstX(), (IDs{1}));
    EXPECT_FALSE(canvas.calls[0].setLineStyle);
    EXPECT_EQ(map.DrawnIDs(), (IDs{1}));
}

// An image layer draws its image in both passes, whatever its box, and only
// while it shows and has an image.
TEST_F(layerDrawing, AnImageLayerDrawsItsImageWhenVisibleAndNumbered)
{
    map.Tipo = orbelan::ImageLayer;
    map.ImageNumber = 3;
    map.Redraw(box(50, 50, 60, 60), canvas);
    map.RedrawWOCalc(view, canvas);
    EXPECT_EQ(canvas.images, (IDs{3, 3}));

    map.ImageNumber = -1;
    map.Redraw(view, canvas);
    map.ImageNumber = 3;
    map.setUserVisibility(0);
    map.Redraw(view, canvas);
    map.RedrawWOCalc(view, canvas);
    EXPECT_EQ(canvas.images, (IDs{3, 3}));
    EXPECT_TRUE(canvas.calls.empty());
}

TEST_F(layerDrawing, ClassesAreComputedOnceAfterTheyChange)
{
    map.ThematicType = 1;
    map.ThematicFieldType = 3;
    map.ThematicMap().Add(1, 2, 0x00FF00, 0, 0, "0", "10");
    add(1, 1).ThemeValue = "5";
    add(2, 2).ThemeValue = "50";
    redraw();
    redraw();
    EXPECT_EQ(canvas.calls[0].theme.DrawColor, 0x00FF00);
    EXPECT_EQ(canvas.calls[1].theme.DrawColor, 0xFF0000);
    EXPECT_FALSE(map.CalculateThemes);

    map.Entidades.Find(2)->ThemeValue = "7";
    redraw();
    EXPECT_EQ(canvas.calls[1].theme.DrawColor, 0xFF0000);
    map.CalculateThemes = true;
    redraw();
    EXPECT_EQ(canvas.calls[1].theme.DrawColor, 0x00FF00);
}

TEST_F(layerDrawing, WithoutThemesEveryEntityIsInTheDefaultClassWithValueZero)
{
    orbelan::Entidad& entity = add(1, 1);
    entity.ThemeValue = "x";
    redraw();
    EXPECT_EQ(entity.ThemeValue, "0");
    EXPECT_EQ(entity.ThemeCode, 1);
}

TEST_F(layerDrawing, AHighlightIsRedAtTwiceTheClassWidthFilledSolid)
{
    map.Tipo = orbelan::polygonlayer;
    map.ThematicMap().Add(3, 3, 0x00FF00, 0x0000FF, 6, "a", "");
    const std::vector<Vertex> square = {{1, 0}, {2, 0}, {2, 1}};
    map.Entidades.AddEntity(1, square, map).ThemeCode = 2;
    map.resaltar(1, view, canvas);
    map.resaltar(99, view, canvas);
    ASSERT_EQ(canvas.calls.size(), 1u);
    const Theme& highlight = canvas.calls[0].theme;
    EXPECT_EQ(canvas.calls[0].kind, RecordingCanvas::Polygon);
    EXPECT_EQ(std::tuple(highlight.DrawColor, highlight.DrawWidth, highlight.DrawStyle), std::tuple(255, 6, 0));
    EXPECT_EQ(std::tuple(highlight.FillStyle, highlight.FillColor), std::tuple(0, 0xC0C000));

    map.DefaultTheme()->DrawWidth = 0;
    map.resaltar(1, view, canvas);
    EXPECT_EQ(canvas.calls[1].theme.DrawWidth, 1);
}

TEST_F(layerDrawing, DirectionMarksFollowTheDrawnLinesOfALoadedLayer)
{
    map.setUserDirectionVisibility(2);
    const std::vector<Vertex> line = {{1, 0}, {2, 0}, {3, 1}};
    map.Entidades.AddEntity(1, line, map).Direction = -1;
    add(2, 2).Direction = 0;
    add(3, 30).Direction = 1; // outside the view, so not drawn
    redraw();
    canvas.calls.clear();
    map.DrawDirections(view, canvas);
    EXPECT_TRUE(canvas.calls.empty()); // not loaded yet

    map.Loaded = true;
    map.DrawDirections(view, canvas);
    ASSERT_EQ(canvas.calls.size(), 2u);
    EXPECT_EQ(canvas.calls[1].kind, RecordingCanvas::DirectionMark);
    EXPECT_EQ(canvas.calls[1].points, (std::vector<orbelan::ScreenPoint>{{2, 0}, {3, -1}}));
    EXPECT_EQ(canvas.calls[1].direction, -1);

    map.setUserVisibility(0);
    redraw();
    canvas.calls.clear();
    map.DrawDirections(view, canvas);
    EXPECT_TRUE(canvas.calls.empty());
}

} // namespace

// Entities 1 and 3 share the text "Alameda"; entity 2 is labelled "Bandera".
class layerLabelPass : public layerDrawing {
protected:
    layerLabelPass()
    {
        map.Loaded = true;
        map.setUserLabelVisibility(2);
        map.lblBold = true;
        map.lblColor = 0x123456;
        const std::int32_t alameda = map.GetLabelIndex("Alameda");
        add(1, 1).IDLabel = alameda;
        add(2, 2).IDLabel = map.GetLabelIndex("Bandera");
        add(3, 3).IDLabel = alameda;
        add(4, 4); // no label
    }

    std::vector<std::string> labelPass()
    {
        redraw();
        canvas.labels.clear();
        map.DrawLabels(view, canvas);
        return canvas.labelTexts();
    }
};

TEST_F(layerLabelPass, ATextIsDrawnForTheFirstDrawnEntityOnlyUnlessDuplicatesAreAllowed)
{
    using Texts = std::vector<std::string>;
    EXPECT_EQ(labelPass(), (Texts{"Alameda", "Bandera"}));
    EXPECT_TRUE(map.lblVisible);
    EXPECT_TRUE(canvas.labels[0].bold);
    EXPECT_EQ(canvas.labels[0].color, 0x123456);

    map.lblAllowDuplicates = true;
    EXPECT_EQ(labelPass(), (Texts{"Alameda", "Bandera", "Alameda"}));
}

TEST_F(layerLabelPass, EntitiesOfAnInvisibleClassAreSkippedSoTheNextOneCarriesTheText)
{
    map.ThematicMap().Add(5, 1, 0, 0, 1, "hidden", "");
    map.ThematicType = 1;
    map.ThematicFieldType = 200;
    map.Entidades.Find(1)->ThemeValue = "hidden";
    map.CalculateThemes = true;
    EXPECT_EQ(labelPass(), (std::vector<std::string>{"Bandera", "Alameda"}));
    EXPECT_EQ(canvas.labels[1].X, 3);
}

TEST_F(layerLabelPass, NoLabelsUnlessLoadedVisibleAndShownAtThisScale)
{
    map.Loaded = false;
    EXPECT_TRUE(labelPass().empty());

    map.Loaded = true;
    map.setUserLabelVisibility(0);
    EXPECT_TRUE(labelPass().empty());
    EXPECT_FALSE(map.lblVisible);

    map.setUserLabelVisibility(2);
    map.setUserVisibility(0);
    EXPECT_TRUE(labelPass().empty());
}

TEST_F(layerLabelPass, ForPlacementTheLinesSharingATextMakeOneCandidateUnlessDuplicatesAreAllowed)
{
    redraw();
    std::vector<orbelan::LabelCandidate> candidates;
    map.CollectLabels(view, canvas, 2, candidates);
    ASSERT_EQ(candidates.size(), 2u);
    const orbelan::LabelCandidate& alameda = candidates[0];
    EXPECT_EQ(std::tuple(alameda.text, alameda.bold, alameda.color, alameda.layerOrder, alameda.size),
              std::tuple("Alameda", true, 0x123456, 2u, 2.0));
    // Both blocks on the screen, parted by a point that is not a number.
    ASSERT_EQ(alameda.points.size(), 5u);
    EXPECT_EQ(std::tuple(alameda.points[0].X, alameda.points[1].Y, alameda.points[3].X, alameda.points[4].Y),
              std::tuple(1.0f, -1.0f, 3.0f, -1.0f));
    EXPECT_TRUE(std::isnan(alameda.points[2].X));
    EXPECT_EQ(candidates[1].text, "Bandera");

    map.lblAllowDuplicates = true;
    candidates.clear();
    map.CollectLabels(view, canvas, 0, candidates);
    EXPECT_EQ(candidates.size(), 3u);
}

// A country's islands share its name: the name goes on its largest part.
TEST_F(layerLabelPass, ForPlacementPolygonsSharingATextMakeOneCandidateOfTheLargest)
{
    map.Tipo = orbelan::polygonlayer;
    map.Entidades.Clear();
    const std::int32_t chile = map.GetLabelIndex("Chile");
    for (const auto& [id, side] : {std::pair{1, 0.5}, std::pair{2, 1.0}, std::pair{3, 0.25}}) {
        const double x = 3 * id;
        map.Entidades.AddEntity(id, std::vector<Vertex>{{x, 0}, {x + side, 0}, {x + side, side}, {x, side}}, map)
            .IDLabel = chile;
    }
    redraw();
    std::vector<orbelan::LabelCandidate> candidates;
    map.CollectLabels(view, canvas, 0, candidates);
    ASSERT_EQ(candidates.size(), 1u);
    EXPECT_EQ(candidates[0].points.front().X, 6.5f);
}
