#include "render/ScaleBar.h"

#include "view/Viewport.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

using orbelan::ScaleBar;

namespace {

constexpr double kScreenDpi = 96;
constexpr double kMetresPerInch = 0.0254;

double metresPerPixelAt(double scaleDenominator) { return scaleDenominator * kMetresPerInch / kScreenDpi; }

// The length of the lowest row of black pixels: the bar itself, under its ticks and text.
int drawnBarLength(const QImage& picture)
{
    for (int y = picture.height() - 1; y >= 0; --y) {
        int count = 0;
        for (int x = 0; x < picture.width(); ++x) {
            count += picture.pixel(x, y) == qRgb(0, 0, 0) ? 1 : 0;
        }
        if (count > 0) {
            return count;
        }
    }
    return 0;
}

TEST(ScaleBar, DrawnLengthMatchesTheScaleInOneTwoFiveSteps)
{
    struct Case {
        double denominator;
        double metres;
        const char* text;
    };
    for (const Case& c : {Case{1000, 20, "20 m"}, Case{2500, 50, "50 m"}, Case{1000000, 20000, "20 km"},
                          Case{400, 10, "10 m"}, Case{5000000, 100000, "100 km"}}) {
        SCOPED_TRACE(c.denominator);
        const double metresPerPixel = metresPerPixelAt(c.denominator);
        const auto span = ScaleBar::choose(metresPerPixel);
        ASSERT_TRUE(span);
        EXPECT_DOUBLE_EQ(span->metres, c.metres);
        EXPECT_EQ(span->text, QString::fromLatin1(c.text));
        EXPECT_LE(span->pixels, ScaleBar::kMaximumPixels);

        QImage picture(400, 300, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        ScaleBar::draw(painter, picture.size(), *span);
        painter.end();
        EXPECT_NEAR(drawnBarLength(picture), c.metres / metresPerPixel, 1.0);
    }
    EXPECT_FALSE(ScaleBar::choose(0));
    EXPECT_FALSE(ScaleBar::choose(std::numeric_limits<double>::quiet_NaN()));
}

TEST(ScaleBar, GroundScaleOfALatitudeLongitudeViewShrinksWithTheCosineOfLatitude)
{
    orbelan::Viewport view;
    EXPECT_FALSE(ScaleBar::groundMetresPerPixel(view));
    view.setSize(800, 600);
    view.setProjection(0);
    constexpr double kMetresPerDegree = 6371008.8 * std::numbers::pi / 180;
    ASSERT_TRUE(view.SetView(-1, -1, 1, 1));
    const auto equator = ScaleBar::groundMetresPerPixel(view);
    ASSERT_TRUE(equator);
    EXPECT_NEAR(*equator, kMetresPerDegree / view.scale(), 1e-3 * *equator);

    ASSERT_TRUE(view.SetView(-71, -61, -69, -59));
    const auto south = ScaleBar::groundMetresPerPixel(view);
    ASSERT_TRUE(south);
    EXPECT_NEAR(*south, kMetresPerDegree / view.scale() * 0.5, 2e-3 * *south);
}

} // namespace
