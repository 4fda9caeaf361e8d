#include "storage/StorageError.h"

namespace orbelan::server {

StorageError::StorageError(const std::string& what)
    : std::runtime_error(what)
{
}

} // namespace orbelan::server
