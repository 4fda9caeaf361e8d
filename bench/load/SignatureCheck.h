#pragma once

#include "load/RowResult.h"
#include "load/ServerProcess.h"

#include <chrono>

namespace orbelan::load {

// One TCP write holding a valid request and then one with a wrong
// signature: the first must be answered, then the connection closed.
class SignatureCheck {
public:
    static constexpr std::chrono::seconds kTimeout{3};

    explicit SignatureCheck(const ServerProcess& server);

    RowResult run() const;

private:
    const ServerProcess& server_;
};

} // namespace orbelan::load
