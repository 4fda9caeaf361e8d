#include "model/DuplicateKeyError.h"
#include "FakeViewer.h"
#include "model/Layers.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using orbelan::layer;
using orbelan::Layers;

namespace {

TEST(LayersAddLayer, MakesAVisibleSelectableLayerOfTheViewer)
{
    FakeViewer viewer;
    viewer.images["Ortho 2010"] = 3;
    Layers layers;
    const layer& roads = layers.AddLayer("Roads", 12, orbelan::polylinelayer, viewer);
    const layer& ortho = layers.AddLayer("Ortho 2010", 7, orbelan::ImageLayer, viewer);
    EXPECT_TRUE(roads.Visible && roads.Selectable);
    EXPECT_EQ(&roads.parentMap(), &viewer);
    EXPECT_EQ(roads.ImageNumber, -1);
    EXPECT_EQ(ortho.ImageNumber, 3);
    EXPECT_EQ(layers.Item("7"), &ortho);
    EXPECT_EQ(layers.Item("8"), nullptr);
    EXPECT_THROW(layers.AddLayer("Again", 12, orbelan::pointlayer, viewer), orbelan::DuplicateKeyError);
}

TEST(LayersMoveLayer, GoesBeforeTheLayerNowAtThePositionOrToTheEnd)
{
    FakeViewer viewer;
    Layers layers;
    for (std::int32_t id : {1, 2, 3, 4}) {
        layers.AddLayer("L", id, orbelan::polylinelayer, viewer);
    }
    const auto order = [&layers] {
        std::vector<std::int32_t> ids;
        for (const layer& each : layers.NewEnum()) {
            ids.push_back(each.IDLayer);
        }
        return ids;
    };
    const layer* first = layers.Item(1);
    layers.MoveLayer(1, 3);
    EXPECT_EQ(order(), (std::vector<std::int32_t>{2, 3, 1, 4}));
    EXPECT_EQ(layers.Item(3), first);
    layers.MoveLayer(4, 1);
    layers.MoveLayer(2, 4);
    EXPECT_EQ(order(), (std::vector<std::int32_t>{4, 3, 1, 2}));
    layers.MoveLayer(3, 2);
    EXPECT_THROW(layers.MoveLayer(2, 5), std::out_of_range);
    EXPECT_THROW(layers.MoveLayer(9, 1), std::invalid_argument);
    EXPECT_EQ(order(), (std::vector<std::int32_t>{4, 3, 1, 2}));
}

} // namespace
