#include "CellFieldValues.h"

#include "MessageIO.h"

namespace orbelan::messages {

void CellFieldValues::encode(DWBUffer& message) const
{
    message.PutLong(layer);
    message.PutString(field);
    message.PutLong(longCount(references.size()));
    for (const Reference& reference : references) {
        message.PutLong(reference.element);
        message.PutLong(reference.value);
    }
    message.PutLong(longCount(values.size()));
    for (const std::string& value : values) {
        message.PutString(value);
    }
}

CellFieldValues CellFieldValues::decode(DWBUffer& message)
{
    CellFieldValues reply;
    reply.layer = message.GetLong();
    reply.field = message.GetString();
    reply.references = readRecords<Reference>(message, message.GetLong(), 8, [](DWBUffer& m) {
        Reference reference;
        reference.element = m.GetLong();
        reference.value = m.GetLong();
        return reference;
    });
    reply.values = readRecords<std::string>(message, message.GetLong(), 2,
                                            [](DWBUffer& m) { return m.GetString(); });
    return reply;
}

} // namespace orbelan::messages
