#include "model/Layers.h"

#include <memory>
#include <stdexcept>
#include <utility>

namespace orbelan {

layer& Layers::AddLayer(const std::string& name, std::int32_t key, TipoLayer kind, const ParentMap& viewer)
{
    auto created = std::make_unique<layer>(viewer);
    created->Nombre = name;
    created->IDLayer = key;
    created->Visible = true;
    created->Selectable = true;
    created->Tipo = kind;
    created->CamposPedidos = false;
    layer& added = Insert(key, std::move(created));
    added.ImageName = name;
    added.ImageNumber = viewer.ImageNumberOf(name);
    return added;
}

void Layers::MoveLayer(std::int32_t key, std::int32_t position)
{
    const layer* atPosition = Item(position);
    if (atPosition == nullptr) {
        throw std::out_of_range("there is no layer at position " + std::to_string(position));
    }
    const layer* moving = Find(key);
    if (moving == nullptr) {
        throw std::invalid_argument("there is no layer " + std::to_string(key));
    }
    if (moving->IDLayer == atPosition->IDLayer) {
        return;
    }
    std::unique_ptr<layer> taken = Take(key);
    if (position > count()) {
        Insert(key, std::move(taken));
    } else {
        InsertBefore(position, key, std::move(taken));
    }
}

} // namespace orbelan
