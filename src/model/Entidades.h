#pragma once

#include "model/Entidad.h"
#include "model/KeyedCollection.h"
#include "model/Vertex.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orbelan {

class layer;

// A layer's entities in order of arrival, keyed by the decimal text of their
// ID. It also notes which IDs arrived since the last redraw took them, so
// that the redraw can draw just those over what is on screen.
//
// A layer holds its entities for its whole life, and caches pointers into
// them, so the collection is neither copied nor moved.
class Entidades : public KeyedCollection<Entidad, std::int32_t> {
public:
    Entidades() = default;
    Entidades(const Entidades&) = delete;
    Entidades& operator=(const Entidades&) = delete;

    // A new entity with the vertices, its box computed (which grows the
    // layer's) and the default class 1. An entity already under that ID is
    // replaced, and the new one goes to the end like any arrival.
    Entidad& AddEntity(std::int32_t ID, std::span<const Vertex> vertices, layer& owner);

    // The IDs added since the previous call, once per addition, in order; the
    // list starts empty again.
    std::vector<std::int32_t> GetNewIDs();

private:
    std::vector<std::int32_t> NewIDs_;
};

} // namespace orbelan
