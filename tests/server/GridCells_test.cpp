#include "grid/GridCells.h"

#include <gtest/gtest.h>

#include <stdexcept>

using orbelan::server::CellIndex;
using orbelan::server::Extent;
using orbelan::server::GridCells;

namespace {

TEST(GridCells, IndicesRoundHalvesToEven)
{
    const GridCells unit(1.0f, 1.0f);
    EXPECT_EQ(unit.cellOf(0.5, 0.5), (CellIndex{90, 180}));
    EXPECT_EQ(unit.cellOf(1.5, 0.0), (CellIndex{90, 182}));
    EXPECT_EQ(unit.cellOf(-180.0, -90.0), (CellIndex{0, 0}));
    EXPECT_EQ(unit.cellOf(-179.4, -89.6), (CellIndex{0, 1}));
}

TEST(GridCells, ABoxTouchesEveryCellBetweenItsCorners)
{
    const GridCells unit(1.0f, 1.0f);
    const std::vector<CellIndex> cells = unit.cellsOf({0.2, 0.2, 2.2, 1.2}, 100);
    const std::vector<CellIndex> expected = {{90, 180}, {90, 181}, {90, 182}, {91, 180}, {91, 181}, {91, 182}};
    EXPECT_EQ(cells, expected);
    EXPECT_THROW(unit.cellsOf({-180.0, -90.0, 180.0, 90.0}, 1000), std::length_error);
    EXPECT_THROW(GridCells(0.0f, 1.0f), std::invalid_argument);
}

} // namespace
