#pragma once

#include <stdexcept>
#include <string>

namespace orbelan::server {

// A statement or transaction of the map store failed; the transaction it
// belonged to has been rolled back.
class StorageError : public std::runtime_error {
public:
    explicit StorageError(const std::string& what);
};

} // namespace orbelan::server
