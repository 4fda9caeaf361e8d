// Pixel probes on a 100 x 100 picture of a latitude/longitude view showing
// (-50, -50) to (50, 50): one pixel per degree, longitude x at pixel x + 50.

#include "render/QtMapCanvas.h"
#include "model/layer.h"

#include <QImage>
#include <QPalette>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using orbelan::QtMapCanvas;
using orbelan::ScreenPoint;
using orbelan::Theme;

namespace {

constexpr QRgb kBackground = 0xFF808080;
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kBlue = 0xFF0000FF;
constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = 0xFF000000;

Theme style(std::int32_t drawStyle, std::int32_t drawWidth, std::int32_t fillStyle)
{
    Theme theme;
    theme.DrawStyle = drawStyle;
    theme.DrawWidth = drawWidth;
    theme.FillStyle = fillStyle;
    theme.DrawColor = 0xFF0000; // blue
    theme.FillColor = 0x0000FF; // red
    return theme;
}

const std::vector<ScreenPoint> kSquare = {{20, 20}, {80, 20}, {80, 80}, {20, 80}};

class QtMapCanvasTest : public ::testing::Test {
protected:
    QtMapCanvasTest()
    {
        view.setSize(100, 100);
        view.SetView(-50, -50, 50, 50);
        picture.fill(kBackground);
    }

    QRgb at(int x, int y) const { return picture.pixel(x, y); }
    int count(QRect area, QRgb color) const
    {
        int n = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                n += at(x, y) == color ? 1 : 0;
            }
        }
        return n;
    }

    orbelan::Viewport view;
    QImage picture{100, 100, QImage::Format_ARGB32_Premultiplied};
};

TEST_F(QtMapCanvasTest, HatchesLeaveTheBackgroundBetweenTheirLines)
{
    const QRect inside(30, 30, 40, 40);
    for (std::int32_t fill = 2; fill <= 7; ++fill) {
        picture.fill(kBackground);
        QtMapCanvas(picture, view, QPalette()).DrawPolygon(kSquare, style(0, 1, fill));
        EXPECT_GT(count(inside, kRed), 0) << fill;
        EXPECT_GT(count(inside, kBackground), 0) << fill;
        // Horizontal lines run along rows, vertical ones down columns, and
        // the forward diagonal down to the right.
        if (fill == 2) {
            EXPECT_EQ(at(40, 41), at(60, 41));
        } else if (fill == 3) {
            EXPECT_EQ(at(41, 40), at(41, 60));
        } else if (fill == 4) {
            EXPECT_EQ(at(40, 40), at(50, 50));
            EXPECT_EQ(at(41, 40), at(51, 50));
        }
    }
    picture.fill(kBackground);
    QtMapCanvas(picture, view, QPalette()).DrawPolygon(kSquare, style(0, 1, 1));
    EXPECT_EQ(count(inside, kBackground), inside.width() * inside.height());
    EXPECT_EQ(at(20, 50), kBlue);
}

TEST_F(QtMapCanvasTest, OutlineStyleFiveHidesLinesButNotFills)
{
    QtMapCanvas canvas(picture, view, QPalette());
    canvas.DrawPolygon(kSquare, style(5, 1, 0));
    canvas.DrawPolyline(std::vector<ScreenPoint>{{0, 90}, {100, 90}}, style(5, 1, 0), true);
    canvas.DrawPoints(std::vector<ScreenPoint>{{10, 10}}, style(5, 3, 0));
    EXPECT_EQ(at(50, 50), kRed);
    EXPECT_EQ(count(picture.rect(), kBlue), 0);
}

TEST_F(QtMapCanvasTest, DashesWidthAndTheKeptLineStyle)
{
    {
        QtMapCanvas canvas(picture, view, QPalette());
        canvas.DrawPolyline(std::vector<ScreenPoint>{{0, 10}, {100, 10}}, style(0, 1, 0), true);
        canvas.DrawPolyline(std::vector<ScreenPoint>{{0, 30}, {100, 30}}, style(1, 1, 0), true);
        // Drawn again from stored points: the dashes set last stay.
        canvas.DrawPolyline(std::vector<ScreenPoint>{{0, 50}, {100, 50}}, style(0, 1, 0), false);
        canvas.DrawPolyline(std::vector<ScreenPoint>{{0, 70}, {100, 70}}, style(0, 5, 0), true);
    }
    EXPECT_EQ(count({10, 10, 80, 1}, kBlue), 80);
    EXPECT_GT(count({10, 30, 80, 1}, kBackground), 10);
    EXPECT_GT(count({10, 50, 80, 1}, kBackground), 10);
    EXPECT_EQ(count({10, 68, 80, 5}, kBlue), 400);
    EXPECT_EQ(at(50, 66), kBackground);
}

TEST_F(QtMapCanvasTest, FarAndUnknownCoordinatesAreCutOrSkipped)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float far = std::numeric_limits<float>::max();
    QtMapCanvas canvas(picture, view, QPalette());
    canvas.DrawPolyline(std::vector<ScreenPoint>{{-far, 10}, {50, 10}, {nan, 0}, {90, 10}}, style(0, 1, 0), true);
    EXPECT_EQ(at(0, 10), kBlue);
    EXPECT_EQ(at(70, 10), kBackground);
    canvas.DrawPolygon(std::vector<ScreenPoint>{{10, 30}, {90, 30}, {1e20f, 1e20f}, {nan, 5}}, style(5, 1, 0));
    EXPECT_EQ(at(50, 60), kRed);
    EXPECT_EQ(at(30, 70), kBackground);
    canvas.DrawPolygon(std::vector<ScreenPoint>{{-far, -far}, {far, -far}, {far, far}}, style(0, 1, 0));
}

TEST_F(QtMapCanvasTest, AHighlightedLineIsRedAndTwiceAsWide)
{
    orbelan::layer roads(view);
    roads.Tipo = orbelan::polylinelayer;
    roads.ThematicMap().Add(0, 2, 0xFF0000, 0, 0, "MICanyMIC", "");
    const std::vector<orbelan::Vertex> road = {{-40, 0}, {40, 0}};
    roads.Entidades.AddEntity(1, road, roads);
    {
        QtMapCanvas canvas(picture, view, QPalette());
        roads.resaltar(1, view.viewBox(), canvas);
    }
    EXPECT_EQ(roads.Entidades.Find(1)->ScreenPoints()[1], (ScreenPoint{90, 50}));
    EXPECT_EQ(at(50, 50), kRed);
    EXPECT_EQ(at(50, 48), kRed);
    EXPECT_EQ(count(picture.rect(), kBlue), 0);
}

TEST_F(QtMapCanvasTest, ADirectionMarkIsAWhiteArrowheadWithABlackBorder)
{
    QtMapCanvas(picture, view, QPalette()).DrawDirectionMark({20, 50}, {80, 50}, 1);
    EXPECT_EQ(at(58, 50), kWhite);
    EXPECT_EQ(at(49, 50), kBlack);
    EXPECT_EQ(at(40, 50), kBackground);
    picture.fill(kBackground);
    QtMapCanvas(picture, view, QPalette()).DrawDirectionMark({20, 50}, {80, 50}, -1);
    EXPECT_EQ(at(42, 50), kWhite);
    EXPECT_EQ(at(60, 50), kBackground);
}

} // namespace
