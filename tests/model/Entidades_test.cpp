#include "FakeViewer.h"
#include "model/Entidades.h"
#include "model/layer.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

using orbelan::Entidad;
using orbelan::Vertex;

namespace {

TEST(EntidadesAddEntity, MakesAnEntityOfTheLayerWhoseBoxOnlyGrows)
{
    orbelan::layer owner{anyView()};
    Entidad& added = owner.Entidades.AddEntity(42, std::vector<Vertex>{{-3, 2}, {4, -1}}, owner);
    EXPECT_EQ(added.parentLayer, &owner);
    EXPECT_EQ(added.ThemeCode, 1);
    EXPECT_EQ(owner.Entidades.Item("42"), &added);
    EXPECT_EQ(owner.bb.MaxX, 4);
    added.SetPoints(std::vector<Vertex>{{5, 5}});
    added.CalculateBoundingBox();
    EXPECT_EQ(std::tuple(added.bb.MinX, added.bb.MaxY), std::tuple(-3, 5));
    EXPECT_EQ(owner.bb.MaxY, 5);
}

TEST(EntidadesAddEntity, AnExistingIDIsReplacedAndMovedToTheEnd)
{
    orbelan::layer owner{anyView()};
    for (std::int32_t id : {1, 2, 3}) {
        owner.Entidades.AddEntity(id, std::vector<Vertex>{{0, 0}}, owner);
    }
    const Entidad& replacement = owner.Entidades.AddEntity(1, std::vector<Vertex>{{9, 9}}, owner);
    std::vector<std::int32_t> order;
    for (const Entidad& entity : owner.Entidades.NewEnum()) {
        order.push_back(entity.ID);
    }
    EXPECT_EQ(order, (std::vector<std::int32_t>{2, 3, 1}));
    EXPECT_EQ(owner.Entidades.Item("1"), &replacement);
    EXPECT_EQ(owner.Entidades.GetNewIDs(), (std::vector<std::int32_t>{1, 2, 3, 1}));
    EXPECT_TRUE(owner.Entidades.GetNewIDs().empty());
    EXPECT_FALSE(owner.Entidades.Remove("4"));
}

} // namespace
