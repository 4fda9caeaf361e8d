#include "model/Campos.h"

#include <memory>

namespace orbelan {

Campo& Campos::Add(const std::string& Nombre, std::int16_t Tipo)
{
    return Insert(Nombre, std::make_unique<Campo>(Campo{Tipo, Nombre}));
}

} // namespace orbelan
