#include "storage/LayerFields.h"

#include "storage/FieldText.h"

namespace orbelan::server {

const messages::FieldRecord* LayerFields::named(const std::string& name) const
{
    const std::string wanted = FieldText::folded(name);
    for (const messages::FieldRecord& field : fields) {
        if (FieldText::folded(field.name) == wanted) {
            return &field;
        }
    }
    return nullptr;
}

} // namespace orbelan::server
