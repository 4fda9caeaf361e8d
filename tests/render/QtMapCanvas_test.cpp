// Pixel probes on a 100 x 100 picture of a latitude/longitude view showing
// (-50, -50) to (50, 50): one pixel per degree, longitude x at pixel x + 50.

#include "render/QtMapCanvas.h"
#include "model/layer.h"

#include <QImage>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

#include <limits>
#include <numbers>
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

    // A latitude/longitude view around (0, 0) at that many metres a pixel.
    void showMetresPerPixel(double metres)
    {
        const double half = 50 * metres / (6371000.0 * std::numbers::pi / 180);
        view.SetView(-half, -half, half, half);
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
    canvas.DrawPolygon(std::vector<ScreenPoint>{{10, 30}, {90, 30}, {1e20f, 1e20f}, {nan, 5}, {5, nan}},
                       style(5, 1, 0));
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
    showMetresPerPixel(1);
    QtMapCanvas(picture, view, QPalette()).DrawDirectionMark({20, 50}, {80, 50}, 1);
    EXPECT_EQ(at(58, 50), kWhite);
    EXPECT_EQ(at(49, 50), kBlack);
    EXPECT_EQ(at(40, 50), kBackground);
    picture.fill(kBackground);
    QtMapCanvas(picture, view, QPalette()).DrawDirectionMark({20, 50}, {80, 50}, -1);
    EXPECT_EQ(at(42, 50), kWhite);
    EXPECT_EQ(at(60, 50), kBackground);
}

TEST_F(QtMapCanvasTest, DirectionMarksAreThirtyMetresLongAndLeftOffShorterSegmentsOrWhenTiny)
{
    showMetresPerPixel(2);
    QtMapCanvas(picture, view, QPalette()).DrawDirectionMark({20, 50}, {80, 50}, 1);
    EXPECT_EQ(at(60, 50), kWhite);
    EXPECT_EQ(at(66, 50), kBlack);
    EXPECT_EQ(at(70, 50), kBackground);
    EXPECT_EQ(at(50, 56), kBackground);
    picture.fill(kBackground);
    showMetresPerPixel(1);
    {
        QtMapCanvas canvas(picture, view, QPalette());
        canvas.setAntialiasing(true);
        canvas.DrawDirectionMark({40, 50}, {60, 50}, 1);
        canvas.DrawDirectionMark({50, 10}, {50, 38.5f}, 1);
    }
    showMetresPerPixel(2.5);
    QtMapCanvas(picture, view, QPalette()).DrawDirectionMark({20, 50}, {80, 50}, 1);
    EXPECT_EQ(count(picture.rect(), kBackground), picture.width() * picture.height());
}

// Lines of every kind, fills, hatches and points, as the whole-pixel drawing
// draws them.
QImage aliasedScene(const orbelan::Viewport& view, bool antialiasing)
{
    QImage scene(100, 100, QImage::Format_ARGB32_Premultiplied);
    scene.fill(kBackground);
    QtMapCanvas canvas(scene, view, QPalette());
    canvas.setAntialiasing(antialiasing);
    canvas.DrawPolygon(std::vector<ScreenPoint>{{5.3f, 8}, {60, 3.6f}, {47, 55.5f}, {9, 40}}, style(0, 1, 0));
    canvas.DrawPolygon(std::vector<ScreenPoint>{{50, 50}, {95, 60}, {70, 97}}, style(1, 2, 6));
    canvas.DrawPolyline(std::vector<ScreenPoint>{{0, 99}, {33.4f, 61}, {99, 70.2f}}, style(0, 1, 0), true);
    canvas.DrawPolyline(std::vector<ScreenPoint>{{2, 70}, {40, 95}, {98, 2}}, style(0, 3, 0), true);
    canvas.DrawPolyline(std::vector<ScreenPoint>{{10, 20}, {90, 35}}, style(2, 1, 0), true);
    canvas.DrawPoints(std::vector<ScreenPoint>{{80, 10}, {85.5f, 15.5f}}, style(0, 4, 0));
    return scene;
}

TEST_F(QtMapCanvasTest, WithoutAntialiasingTheWholePixelsStayAsTheyWere)
{
    const QImage reference(QStringLiteral(RENDER_TEST_DATA "/aliased-scene.png"));
    ASSERT_FALSE(reference.isNull());
    EXPECT_EQ(aliasedScene(view, false), reference.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

TEST_F(QtMapCanvasTest, AntialiasingBlendsEdgesButKeepsASolidFillExact)
{
    const QPolygonF slanted({{10, 12}, {88, 21}, {60, 90}});
    std::vector<ScreenPoint> corners;
    for (const QPointF& corner : slanted) {
        corners.push_back({static_cast<float>(corner.x()), static_cast<float>(corner.y())});
    }
    {
        QtMapCanvas canvas(picture, view, QPalette());
        canvas.setAntialiasing(true);
        canvas.DrawPolygon(corners, style(5, 1, 0));
    }
    // A pixel whose whole square lies inside is the class colour; the
    // corners are on pixel centres.
    int blended = 0;
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 100; ++x) {
                    const QRectF square(x - 0.5, y - 0.5, 1, 1);
            const bool whole = std::ranges::all_of(
                std::array{square.topLeft(), square.topRight(), square.bottomLeft(), square.bottomRight()},
                [&](const QPointF& corner) { return slanted.containsPoint(corner, Qt::OddEvenFill); });
            if (whole) {
                EXPECT_EQ(at(x, y), kRed) << x << ',' << y;
            }
            blended += at(x, y) != kRed && at(x, y) != kBackground ? 1 : 0;
        }
    }
    EXPECT_GT(blended, 100);
    EXPECT_NE(aliasedScene(view, true), aliasedScene(view, false));
}

TEST_F(QtMapCanvasTest, ASmoothThinLineSharesEachColumnBetweenTwoPixels)
{
    picture.fill(kWhite);
    {
        QtMapCanvas canvas(picture, view, QPalette());
        canvas.setAntialiasing(true);
        canvas.DrawPolyline(std::vector<ScreenPoint>{{10, 20}, {90, 53}}, style(0, 1, 0), true);
        // Between two rows of pixels, not rounded onto one of them.
        canvas.DrawPolyline(std::vector<ScreenPoint>{{10, 80.5f}, {90, 80.5f}}, style(0, 1, 0), true);
    }
    EXPECT_NEAR(qRed(at(50, 80)), 128, 2);
    EXPECT_NEAR(qRed(at(50, 81)), 128, 2);
    int partial = 0;
    for (int x = 10; x <= 90; ++x) {
        // The blue line takes red away from white in proportion to coverage.
        int covered = 0;
        for (int y = 0; y < 70; ++y) {
            covered += 255 - qRed(at(x, y));
            partial += at(x, y) != kWhite && at(x, y) != kBlue ? 1 : 0;
        }
        EXPECT_NEAR(covered, 255, 2) << x;
    }
    EXPECT_GT(partial, 60);
}

TEST_F(QtMapCanvasTest, AHiDpiPictureHasTwiceThePixelsWithWidthsInLogicalPixels)
{
    QImage sharp(200, 200, QImage::Format_ARGB32_Premultiplied);
    sharp.setDevicePixelRatio(2);
    for (const bool antialiasing : {false, true}) {
        sharp.fill(kBackground);
        {
            QtMapCanvas canvas(sharp, view, QPalette());
            canvas.setAntialiasing(antialiasing);
            canvas.DrawPolygon(kSquare, style(5, 1, 0));
            canvas.DrawPolyline(std::vector<ScreenPoint>{{0, 90}, {100, 90}}, style(0, 1, 0), true);
        }
        EXPECT_EQ(sharp.pixel(45, 45), kRed) << antialiasing;
        EXPECT_EQ(sharp.pixel(155, 155), kRed);
        EXPECT_EQ(sharp.pixel(35, 100), kBackground);
        EXPECT_EQ(sharp.pixel(165, 100), kBackground);
        int line = 0;
        for (int y = 170; y < 190; ++y) {
            line += sharp.pixel(100, y) == kBlue ? 1 : 0;
        }
        EXPECT_EQ(line, 2);
    }
}

} // namespace

// Wide smooth lines are set by our own writer; the painter's wide pen is what
// they should look like.
TEST_F(QtMapCanvasTest, ASmoothWideLineLooksLikeThePaintersWithoutGapsAtItsJoins)
{
    const std::vector<ScreenPoint> zigzag = {{8, 90}, {30, 40}, {40, 88}, {52, 20}, {95, 30}, {60, 36}};
    const std::vector<ScreenPoint> ring = {{15, 10}, {45, 12}, {30, 30}};
    picture.fill(kWhite);
    {
        QtMapCanvas canvas(picture, view, QPalette());
        canvas.setAntialiasing(true);
        canvas.DrawPolygon(ring, style(0, 2, 0));
        canvas.DrawPolyline(zigzag, style(0, 3, 0), true);
    }
    QImage painted(picture.size(), picture.format());
    painted.fill(kWhite);
    {
        QPainter painter(&painted);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(0.5, 0.5);
        const auto polygon = [](const std::vector<ScreenPoint>& points) {
            QPolygonF shape;
            for (const ScreenPoint& point : points) {
                shape << QPointF(point.X, point.Y);
            }
            return shape;
        };
        painter.setBrush(QColor(kRed));
        painter.setPen(QPen(QColor(kBlue), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolygon(polygon(ring));
        painter.setPen(QPen(QColor(kBlue), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(polygon(zigzag));
    }
    // A pixel partly covered by two segments of an acute corner takes the
    // larger share, where the painter takes their union: at most half apart.
    int largest = 0;
    int apart = 0;
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 100; ++x) {
            int difference = 0;
            for (const int shift : {0, 8, 16}) {
                const auto channel = [shift](QRgb pixel) { return static_cast<int>((pixel >> shift) & 0xFF); };
                difference = std::max(difference, std::abs(channel(at(x, y)) - channel(painted.pixel(x, y))));
            }
            largest = std::max(largest, difference);
            apart += difference > 64 ? 1 : 0;
        }
    }
    EXPECT_LE(largest, 128);
    EXPECT_LE(apart, 6);
}
