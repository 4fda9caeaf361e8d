#pragma once

namespace orbelan {

// The heights of the legend window, in twips, once its blocks are built. A
// legend taller than the screen comfortably holds gets a fixed height and a
// scroll bar; the step by which one unit of the bar moves the blocks grows
// with the legend's height.
struct LegendLayout {
    // A legend taller than this scrolls.
    static constexpr int kScrollThreshold = 8000;
    // The window's height and the scroll bar's when it scrolls.
    static constexpr int kScrolledHeight = 7800;
    static constexpr int kScrollBarHeight = 7000;
    // Room left under the last block.
    static constexpr int kBottomMargin = 360;

    int totalHeight = 0;
    int formHeight = 0;
    bool scrolls = false;
    int scrollMaximum = 0;
    int scrollStep = 100;

    // The layout of blocks whose last one ends lastBlockBottom twips below
    // the top of the window; 0 or less when no block was built.
    static LegendLayout forBlocks(int lastBlockBottom);
    // The layout of a legend whose blocks need totalHeight twips.
    static LegendLayout forTotal(int totalHeight);
};

} // namespace orbelan
