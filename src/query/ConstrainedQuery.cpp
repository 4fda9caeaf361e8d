#include "query/ConstrainedQuery.h"

#include "model/layer.h"

namespace orbelan {

messages::ConstrainedElementQuery constrainedQuery(const layer& target, std::vector<std::int32_t> candidates,
                                                   const std::vector<Constraint>& constraints)
{
    messages::ConstrainedElementQuery query{target.IDLayer, std::move(candidates), {}};
    for (const Constraint& constraint : constraints) {
        const std::string name = constraint.field.toStdString();
        const Campo* field = target.Campos().Find(name);
        query.constraints.push_back({name, field ? field->Tipo : std::int16_t{0},
                                     static_cast<std::uint8_t>(constraint.op & 0xFF),
                                     constraint.value1.toStdString(), constraint.value2.toStdString()});
    }
    return query;
}

} // namespace orbelan
