#include "protocol/messages/CellFieldValues.h"

#include "protocol/messages/MessageIO.h"

#include <utility>

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
    std::vector<Reference> references;
    std::vector<std::string> values;
    decodeEach(
        message, reply, [&references](const Reference& reference) { references.push_back(reference); },
        [&values](std::string&& value) { values.push_back(std::move(value)); });
    reply.references = std::move(references);
    reply.values = std::move(values);
    return reply;
}

void CellFieldValues::decodeEach(DWBUffer& message, CellFieldValues& reply,
                                 const std::function<void(const Reference&)>& onReference,
                                 const std::function<void(std::string&&)>& onValue)
{
    reply.layer = message.GetLong();
    reply.field = message.GetString();
    const auto readReference = [](DWBUffer& m) {
        Reference reference;
        reference.element = m.GetLong();
        reference.value = m.GetLong();
        return reference;
    };
    forEachRecord(message, message.GetLong(), readReference, onReference);
    forEachRecord(message, message.GetLong(), [](DWBUffer& m) { return m.GetString(); }, onValue);
}

} // namespace orbelan::messages
