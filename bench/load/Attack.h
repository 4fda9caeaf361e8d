#pragma once

#include <string>

namespace orbelan::load {

// One hostile load. Constructing it brings the attackers in and sets them
// going; leave() ends bounded work (or cuts it at its deadline) and closes
// their connections.
class Attack {
public:
    virtual ~Attack() = default;
    virtual void leave() = 0;
    // What the row reports beside the figures, once the attackers left.
    virtual std::string observation() const = 0;
};

} // namespace orbelan::load
