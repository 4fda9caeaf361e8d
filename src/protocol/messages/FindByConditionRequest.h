#pragma once

#include "protocol/CommandCatalogue.h"
#include "protocol/DWBUffer.h"
#include "protocol/messages/Condition.h"

namespace orbelan::messages {

// Request 13: the elements of one layer whose value of one field meets a
// condition.
struct FindByConditionRequest {
    static constexpr CommandCode kCode = CommandCode::FindByCondition;

    Condition condition;

    void encode(DWBUffer& message) const { condition.encode(message); }
    static FindByConditionRequest decode(DWBUffer& message) { return {Condition::decode(message)}; }
    bool operator==(const FindByConditionRequest&) const = default;
};

} // namespace orbelan::messages
