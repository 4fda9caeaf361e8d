#pragma once

#include "session/InformationFields.h"

#include <cstdint>
#include <vector>

namespace orbelan {

class layer;
struct LoadContext;

// Lets the values of an element change: the new values are the ones the
// session was given in advance, if any (used once), or else those the user
// types in dlgEditInfo. Each field whose value changed goes to the server as
// one request 220, numbers in the form the field stores them. A value that
// does not fit its field's type is refused with a message and nothing is
// sent; a cancelled dialog or an unchanged value sends nothing either.
void editElementValues(const layer& mapLayer, std::int32_t elementId, const std::vector<InformationField>& fields,
                       LoadContext& context);

} // namespace orbelan
