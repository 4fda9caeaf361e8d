#include "Entidades.h"
#include "layer.h"

#include <gtest/gtest.h>

#include <vector>

using orbelan::Entidad;
using orbelan::Vertex;

namespace {

std::vector<std::int32_t> order(const orbelan::Entidades& entities)
{
    std::vector<std::int32_t> ids;
    for (const Entidad& entity : entities.NewEnum()) {
        ids.push_back(entity.ID);
    }
    return ids;
}

TEST(EntidadesAddEntity, MakesAnEntityOfTheLayerInClassOne)
{
    orbelan::layer owner;
    const std::vector<Vertex> vertices = {{-3, 2}, {4, -1}};
    const Entidad& added = owner.Entidades.AddEntity(42, vertices, owner);
    EXPECT_EQ(added.ID, 42);
    EXPECT_EQ(added.parentLayer, &owner);
    EXPECT_EQ(added.ThemeCode, 1);
    EXPECT_EQ(added.GetPoints(), vertices);
    EXPECT_EQ(added.bb.MinX, -3);
    EXPECT_EQ(added.bb.MaxY, 2);
    EXPECT_EQ(owner.bb.MaxX, 4);
    EXPECT_EQ(owner.bb.MinY, -1);
    EXPECT_EQ(owner.Entidades.Item("42"), &added);
}

TEST(EntidadesAddEntity, AnExistingIDIsReplacedAndMovedToTheEnd)
{
    orbelan::layer owner;
    for (std::int32_t id : {1, 2, 3}) {
        owner.Entidades.AddEntity(id, std::vector<Vertex>{{0, 0}}, owner);
    }
    const Entidad& replacement = owner.Entidades.AddEntity(1, std::vector<Vertex>{{9, 9}}, owner);
    EXPECT_EQ(order(owner.Entidades), (std::vector<std::int32_t>{2, 3, 1}));
    EXPECT_EQ(owner.Entidades.Item("1"), &replacement);
    EXPECT_EQ(owner.Entidades.Item(3)->Points()[0], (Vertex{9, 9}));
    EXPECT_EQ(owner.Entidades.count(), 3);
}

TEST(EntidadesNewIDs, ListsEveryAdditionOnceAndEmptiesWhenRead)
{
    orbelan::layer owner;
    for (std::int32_t id : {5, 6, 5}) {
        owner.Entidades.AddEntity(id, std::vector<Vertex>{}, owner);
    }
    EXPECT_EQ(owner.Entidades.GetNewIDs(), (std::vector<std::int32_t>{5, 6, 5}));
    EXPECT_TRUE(owner.Entidades.GetNewIDs().empty());
    owner.Entidades.AddEntity(7, std::vector<Vertex>{}, owner);
    EXPECT_EQ(owner.Entidades.GetNewIDs(), (std::vector<std::int32_t>{7}));
}

TEST(EntidadesRemove, UnknownKeysAreIgnored)
{
    orbelan::layer owner;
    owner.Entidades.AddEntity(1, std::vector<Vertex>{}, owner);
    EXPECT_FALSE(owner.Entidades.Remove("2"));
    EXPECT_FALSE(owner.Entidades.Remove(""));
    EXPECT_TRUE(owner.RemoveEntity(1));
    EXPECT_EQ(owner.Entidades.Item("1"), nullptr);
}

} // namespace
