#include "PixelLines.h"

#include <QImage>

#include <gtest/gtest.h>

using orbelan::PixelLines;

namespace {

constexpr QRgb kInk = 0xFF102030;

class PixelLinesTest : public ::testing::Test {
protected:
    PixelLinesTest() { picture.fill(0xFFFFFFFF); }

    int inked() const
    {
        int n = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                n += picture.pixel(x, y) == kInk ? 1 : 0;
            }
        }
        return n;
    }

    QImage picture{20, 10, QImage::Format_ARGB32_Premultiplied};
};

TEST_F(PixelLinesTest, ALineCoversBothEndsAndOnePixelPerStep)
{
    PixelLines lines(picture);
    lines.setColor(kInk);
    lines.line({2, 1}, {12, 6});
    EXPECT_EQ(inked(), 11);
    EXPECT_EQ(picture.pixel(2, 1), kInk);
    EXPECT_EQ(picture.pixel(12, 6), kInk);
    EXPECT_EQ(picture.pixel(4, 2), kInk);
    lines.line({15, 9}, {15, 0});
    EXPECT_EQ(inked(), 21);
}

TEST_F(PixelLinesTest, OnlyThePartInsideThePictureIsSet)
{
    PixelLines lines(picture);
    lines.setColor(kInk);
    lines.line({-30, 5}, {50, 5});
    lines.dot({-1, 0});
    lines.dot({20, 3});
    EXPECT_EQ(inked(), 20);

    QImage other(4, 4, QImage::Format_Indexed8);
    EXPECT_FALSE(PixelLines(other).usable());
}

} // namespace
