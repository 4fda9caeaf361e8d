#include "query/ConstraintCheck.h"

#include "model/layer.h"
#include "protocol/FieldValueText.h"

namespace orbelan {

namespace {

constexpr std::int16_t kFirstCheckedType = 2;
constexpr std::int16_t kLastCheckedType = 131;

} // namespace

bool constraintsFit(const std::vector<Constraint>& constraints, const layer& target)
{
    for (const Constraint& constraint : constraints) {
        const Campo* field = target.Campos().Find(constraint.field.toStdString());
        if (field == nullptr)
            return false;
        if (field->Tipo < kFirstCheckedType || field->Tipo > kLastCheckedType)
            return true;
        if (!keepsTextThroughNumberType(constraint.value1.toStdString(), field->Tipo))
            return false;
    }
    return true;
}

} // namespace orbelan
