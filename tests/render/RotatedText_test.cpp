#include "render/LabelFonts.h"
#include "render/QtMapCanvas.h"
#include "render/RotatedTextStart.h"

#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

using orbelan::LabelFonts;
using orbelan::rotatedTextStart;

namespace {

void expectNear(QPointF actual, QPointF expected)
{
    EXPECT_NEAR(actual.x(), expected.x(), 1E-6);
    EXPECT_NEAR(actual.y(), expected.y(), 1E-6);
}

TEST(RotatedTextStart, EachAlignmentMovesTheStartFromTheAnchorAsTheTextTurns)
{
    const QPointF anchor(100, 50);
    const QSizeF text(40, 10);
    expectNear(rotatedTextStart(anchor, 30, text, 1), anchor);
    expectNear(rotatedTextStart(anchor, 0, text, 2), {80, 50});
    expectNear(rotatedTextStart(anchor, 0, text, 3), {100, 45});
    // Turned upright the text runs up the screen: centring along it moves
    // the start down, centring across it moves the start left.
    expectNear(rotatedTextStart(anchor, 90, text, 2), {100, 70});
    expectNear(rotatedTextStart(anchor, 90, text, 3), {95, 50});
    const double a = 30 * 3.141592654 / 180;
    expectNear(rotatedTextStart(anchor, 30, text, 3), {100 - std::sin(a) * 5, 50 - std::cos(a) * 5});
}

TEST(LabelFonts, SevenPointArialAtEveryDensityOneFontPerWeight)
{
    EXPECT_EQ(LabelFonts::pixelSize(96), 9);
    EXPECT_EQ(LabelFonts::pixelSize(120), 12);
    EXPECT_EQ(LabelFonts::pixelSize(144), 14);
    EXPECT_EQ(LabelFonts::turn(45.67), 45.6);
    EXPECT_EQ(LabelFonts::turn(-45.61), -45.7);

    LabelFonts fonts(96);
    const QFont& regular = fonts.face(false).font;
    EXPECT_EQ(regular.pixelSize(), 9);
    EXPECT_EQ(regular.weight(), QFont::Normal);
    EXPECT_EQ(fonts.face(true).font.weight(), QFont::Bold);
    fonts.face(false);
    fonts.face(true);
    EXPECT_EQ(fonts.made(), 2);
    // The set-up installs Liberation Sans, which stands in for Arial.
    EXPECT_EQ(QFontInfo(regular).family(), QStringLiteral("Liberation Sans"));
}

// A 100 x 100 latitude/longitude view of (-50, -50) to (50, 50): longitude x
// lands on pixel column x + 50, latitude y on row 50 - y.
class RotatedTextDrawing : public ::testing::Test {
protected:
    RotatedTextDrawing()
    {
        view.setSize(100, 100);
        view.SetView(-50, -50, 50, 50);
        picture.fill(Qt::white);
    }

    void draw(double lon, double lat, double angle, std::int16_t align, const QFont& surfaceFont = QFont())
    {
        orbelan::QtMapCanvas canvas(picture, view, QPalette());
        canvas.setTextMetrics(surfaceFont, 96);
        canvas.DrawRotatedText(lon, lat, angle, "WWWWW", false, 0x000000, align);
    }

    // The box around every dark pixel.
    QRect inked() const
    {
        QRect box;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (qGray(picture.pixel(x, y)) < 128) {
                    box |= QRect(x, y, 1, 1);
                }
            }
        }
        return box;
    }

    orbelan::Viewport view;
    QImage picture{100, 100, QImage::Format_ARGB32_Premultiplied};
};

TEST_F(RotatedTextDrawing, AHorizontalLabelHangsRightAndDownFromItsPoint)
{
    draw(-30, 0, 0, 1);
    const QRect box = inked();
    ASSERT_FALSE(box.isEmpty());
    EXPECT_GE(box.left(), 20);
    EXPECT_LE(box.left(), 22);
    EXPECT_GE(box.top(), 50);
    EXPECT_LE(box.bottom(), 50 + 12);
    EXPECT_GT(box.width(), 30);
}

// Offsets are measured in the control's font; in the label's own font the
// text is centred across the point.
TEST_F(RotatedTextDrawing, AnUprightLabelRunsUpTheScreenCentredAcrossItsPoint)
{
    draw(0, -30, 90, 3, LabelFonts(96).face(false).font);
    const QRect box = inked();
    ASSERT_FALSE(box.isEmpty());
    EXPECT_LE(box.bottom(), 80);
    EXPECT_GE(box.bottom(), 77);
    EXPECT_GT(box.height(), 30);
    EXPECT_LT(box.left(), 50);
    EXPECT_GT(box.right(), 50);
    EXPECT_LE(box.width(), 12);
}

// Turned labels are set straight into the picture; the painter, turning
// the same glyphs itself, draws where they must be and how much ink they
// take. Its turned outlines are smoothed differently, so single pixels differ.
TEST_F(RotatedTextDrawing, ATurnedLabelLiesWhereThePainterWouldTurnIt)
{
    const auto ink = [](const QImage& image) {
        long total = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                total += 255 - qGray(image.pixel(x, y));
            }
        }
        return total;
    };
    for (const double angle : {30.0, -63.5, 90.0, 180.0}) {
        picture.fill(Qt::white);
        draw(0, 0, angle, 1);
        const QRect drawn = inked();
        const long drawnInk = ink(picture);
        picture.fill(Qt::white);
        {
            QPainter painter(&picture);
            qreal advance = 0;
            painter.setPen(Qt::black);
            painter.translate(50, 50);
            painter.rotate(-angle);
            painter.drawGlyphRun(QPointF(0, 0), LabelFonts(96).face(false).layout(QStringLiteral("WWWWW"), advance));
        }
        const QRect expected = inked();
        for (const QPoint corner : {drawn.topLeft() - expected.topLeft(), drawn.bottomRight() - expected.bottomRight()}) {
            EXPECT_LE(std::abs(corner.x()), 2) << angle;
            EXPECT_LE(std::abs(corner.y()), 2) << angle;
        }
        EXPECT_NEAR(static_cast<double>(drawnInk) / static_cast<double>(ink(picture)), 1.0, 0.25) << angle;
    }
}

// A picture whose pixels the canvas cannot set itself gets turned labels
// through the painter, in the same place.
TEST_F(RotatedTextDrawing, APictureOfAnotherFormatGetsTurnedLabelsAllTheSame)
{
    draw(0, -30, 90, 3, LabelFonts(96).face(false).font);
    const QRect direct = inked();
    picture = QImage(100, 100, QImage::Format_RGB888);
    picture.fill(Qt::white);
    draw(0, -30, 90, 3, LabelFonts(96).face(false).font);
    const QRect painted = inked();
    EXPECT_LE((painted.topLeft() - direct.topLeft()).manhattanLength(), 2);
    EXPECT_LE((painted.bottomRight() - direct.bottomRight()).manhattanLength(), 2);
}

TEST_F(RotatedTextDrawing, ALabelFarOutsideThePictureDrawsNothing)
{
    draw(1E6, 0, 0, 1);
    draw(std::nan(""), 0, 0, 1);
    EXPECT_TRUE(inked().isEmpty());
}

} // namespace
