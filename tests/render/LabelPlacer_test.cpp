#include "render/LabelPlacer.h"
#include "render/QtMapCanvas.h"
#include "view/Viewport.h"

#include <QImage>
#include <QPalette>
#include <QPolygonF>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using orbelan::LabelCandidate;
using orbelan::LabelFonts;
using orbelan::LabelPlacer;
using orbelan::PlacedLabel;
using orbelan::ScreenPoint;

namespace {

const QRectF kView(0, 0, 400, 300);

// A polygon's candidate covers 10,000 pixels.
LabelCandidate candidate(orbelan::TipoLayer kind, std::vector<ScreenPoint> points, std::size_t layerOrder = 0,
                         const std::string& text = "Avenida Matta")
{
    return {text, false, 0, kind, std::move(points), 1e4, layerOrder};
}

QPolygonF polygon(const PlacedLabel& label)
{
    return QPolygonF({label.box[0], label.box[1], label.box[2], label.box[3], label.box[0]});
}

double area(const QPolygonF& ring)
{
    double twice = 0;
    for (qsizetype i = 1; i < ring.size(); ++i) {
        twice += ring[i - 1].x() * ring[i].y() - ring[i].x() * ring[i - 1].y();
    }
    return std::abs(twice) / 2;
}

TEST(LabelPlacer, PlacedLabelsNeitherOverlapNorLeaveTheViewAndCollidingOnesAreDropped)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> x(-100, 500);
    std::uniform_real_distribution<float> y(-100, 400);
    std::vector<LabelCandidate> candidates;
    for (int i = 0; i < 300; ++i) {
        const auto kind = std::array{orbelan::polylinelayer, orbelan::pointlayer, orbelan::polygonlayer}[i % 3];
        std::vector<ScreenPoint> points{{x(random), y(random)}, {x(random), y(random)}, {x(random), y(random)}};
        candidates.push_back(candidate(kind, points, static_cast<std::size_t>(i % 2), "Calle " + std::to_string(i)));
    }
    LabelFonts fonts(96);
    const std::vector<PlacedLabel> placed = LabelPlacer(kView, fonts).place(candidates);
    ASSERT_GT(placed.size(), 20u);
    EXPECT_LT(placed.size(), 150u);
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const QPolygonF box = polygon(placed[i]);
        EXPECT_TRUE(kView.contains(box.boundingRect())) << placed[i].text.toStdString();
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_LT(area(box.intersected(polygon(placed[j]))), 1E-6)
                << placed[i].text.toStdString() << " over " << placed[j].text.toStdString();
        }
    }
}

TEST(LabelPlacer, APolygonSmallerThanALetterOfItsNameIsLeftUnnamed)
{
    LabelFonts fonts(96);
    std::vector<LabelCandidate> islands{candidate(orbelan::polygonlayer, {{100, 100}}, 0, "Samoa"),
                                        candidate(orbelan::polygonlayer, {{300, 200}}, 0, "Chile")};
    islands[0].size = 20;
    const std::vector<PlacedLabel> placed = LabelPlacer(kView, fonts).place(islands);
    ASSERT_EQ(placed.size(), 1u);
    EXPECT_EQ(placed[0].text, "Chile");
}

TEST(LabelPlacer, ALineDrawnRightToLeftReadsLeftToRightOnTheLongEnoughSegmentNearestTheCentre)
{
    LabelFonts fonts(96);
    // From the right: a long diagonal, a stub too short for the name right
    // at the centre, then a long level stretch just below it.
    const std::vector<LabelCandidate> level{
        candidate(orbelan::polylinelayer, {{390, 20}, {204, 152}, {198, 152}, {20, 170}})};
    const std::vector<PlacedLabel> first = LabelPlacer(kView, fonts).place(level);
    ASSERT_EQ(first.size(), 1u);
    // Along (198, 152) -> (20, 170), turned back to read left to right.
    EXPECT_NEAR(first[0].turn, 5.7, 0.1);
    EXPECT_LT(first[0].start.x(), 109);
    EXPECT_NEAR((first[0].box[0] + first[0].box[2]).x() / 2, 109, 0.5);

    const std::vector<LabelCandidate> downhill{candidate(orbelan::polylinelayer, {{300, 50}, {100, 250}})};
    const std::vector<PlacedLabel> second = LabelPlacer(kView, fonts).place(downhill);
    ASSERT_EQ(second.size(), 1u);
    EXPECT_EQ(second[0].turn, 45);
    EXPECT_LT(second[0].start.x(), 200);
    EXPECT_GT(second[0].start.y(), 150);

    const std::vector<LabelCandidate> upright{candidate(orbelan::polylinelayer, {{200, 50}, {200, 250}})};
    EXPECT_EQ(LabelPlacer(kView, fonts).place(upright).at(0).turn, 90);
}

TEST(LabelPlacer, TheHaloRingsTheTextInTheBackgroundColourOverAFill)
{
    QImage picture(200, 100, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::black);
    orbelan::Viewport view;
    view.setSize(200, 100);
    view.SetView(-1, -1, 1, 1);
    const QColor paper(Qt::white);
    {
        orbelan::QtMapCanvas canvas(picture, view, QPalette());
        const std::vector<PlacedLabel> placed = LabelPlacer(QRectF(0, 0, 200, 100), canvas.labelFonts())
                                                    .place({candidate(orbelan::polylinelayer, {{20, 80}, {180, 20}})});
        ASSERT_EQ(placed.size(), 1u);
        canvas.drawPlacedLabel(placed[0], paper);
    }
    int ringed = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ringed += picture.pixelColor(x, y).lightness() > 100;
        }
    }
    // The name's letters in black, each inside a white rim.
    EXPECT_GT(ringed, 150);
}

} // namespace
