#include "DuplicateKeyError.h"
#include "FakeViewer.h"
#include "Layers.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using orbelan::layer;
using orbelan::Layers;

namespace {

std::vector<std::int32_t> order(const Layers& layers)
{
    std::vector<std::int32_t> ids;
    for (const layer& each : layers.NewEnum()) {
        ids.push_back(each.IDLayer);
    }
    return ids;
}

class LayersOrder : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (std::int32_t id : {1, 2, 3, 4}) {
            layers.AddLayer("L" + std::to_string(id), id, orbelan::polylinelayer, viewer);
        }
    }

    FakeViewer viewer;
    Layers layers;
};

TEST(LayersAddLayer, MakesAVisibleSelectableLayerOfTheViewer)
{
    FakeViewer viewer;
    viewer.images["Ortho 2010"] = 3;
    Layers layers;
    const layer& roads = layers.AddLayer("Roads", 12, orbelan::polylinelayer, viewer);
    const layer& ortho = layers.AddLayer("Ortho 2010", 7, orbelan::ImageLayer, viewer);
    EXPECT_EQ(roads.Nombre, "Roads");
    EXPECT_EQ(roads.IDLayer, 12);
    EXPECT_EQ(roads.Tipo, orbelan::polylinelayer);
    EXPECT_TRUE(roads.Visible);
    EXPECT_TRUE(roads.Selectable);
    EXPECT_FALSE(roads.CamposPedidos);
    EXPECT_EQ(roads.parentMap, &viewer);
    EXPECT_EQ(roads.ImageName, "Roads");
    EXPECT_EQ(roads.ImageNumber, -1);
    EXPECT_EQ(ortho.ImageNumber, 3);
    EXPECT_EQ(layers.Item("7"), &ortho);
    EXPECT_EQ(layers.Item(1), &roads);
    EXPECT_EQ(layers.Item("8"), nullptr);
    EXPECT_THROW(layers.AddLayer("Again", 12, orbelan::pointlayer, viewer), orbelan::DuplicateKeyError);
}

TEST(LayersNewLayer, StartsWithTheDocumentedState)
{
    const layer fresh;
    EXPECT_EQ(fresh.bb.MinX, 1E37);
    EXPECT_TRUE(fresh.CalculateThemes);
    EXPECT_EQ(fresh.AccessLevel, orbelan::ALNoAccess);
    EXPECT_EQ(fresh.UserVisibility(), 1);
    EXPECT_EQ(fresh.UserDirectionVisibility(), 0);
    EXPECT_TRUE(fresh.DrawnIDs().empty());
    EXPECT_EQ(fresh.Entidades.count(), 0);
}

TEST_F(LayersOrder, MovingForwardGoesBeforeTheLayerNowThere)
{
    const layer* moved = layers.Item("1");
    layers.MoveLayer(1, 3);
    EXPECT_EQ(order(layers), (std::vector<std::int32_t>{2, 3, 1, 4}));
    EXPECT_EQ(layers.Item("1"), moved);
}

TEST_F(LayersOrder, MovingBackAndToTheEnd)
{
    layers.MoveLayer(4, 1);
    EXPECT_EQ(order(layers), (std::vector<std::int32_t>{4, 1, 2, 3}));
    layers.MoveLayer(1, 4);
    EXPECT_EQ(order(layers), (std::vector<std::int32_t>{4, 2, 3, 1}));
}

TEST_F(LayersOrder, MovingOntoItselfOrElsewhereBadlyChangesNothing)
{
    layers.MoveLayer(2, 2);
    EXPECT_THROW(layers.MoveLayer(2, 5), std::out_of_range);
    EXPECT_THROW(layers.MoveLayer(2, 0), std::out_of_range);
    EXPECT_THROW(layers.MoveLayer(9, 1), std::invalid_argument);
    EXPECT_EQ(order(layers), (std::vector<std::int32_t>{1, 2, 3, 4}));
}

} // namespace
