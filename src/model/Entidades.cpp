#include "model/Entidades.h"

#include <memory>
#include <utility>

namespace orbelan {

Entidad& Entidades::AddEntity(std::int32_t ID, std::span<const Vertex> vertices, layer& owner)
{
    auto entity = std::make_unique<Entidad>();
    entity->ID = ID;
    entity->SetPoints(vertices);
    entity->parentLayer = &owner;
    entity->CalculateBoundingBox();
    entity->ThemeCode = 1;
    RemoveKey(ID);
    Entidad& added = Insert(ID, std::move(entity));
    NewIDs_.push_back(ID);
    return added;
}

std::vector<std::int32_t> Entidades::GetNewIDs()
{
    return std::exchange(NewIDs_, {});
}

} // namespace orbelan
