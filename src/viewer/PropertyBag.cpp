#include "viewer/PropertyBag.h"

namespace orbelan {

PropertyBag::~PropertyBag() = default;

} // namespace orbelan
