#include "login/LoginPolicy.h"

namespace orbelan::server {

messages::LoginAnswer::Version LoginPolicy::builtVersion()
{
    return {ORBELAN_VERSION_MAJOR, ORBELAN_VERSION_MINOR, ORBELAN_VERSION_PATCH};
}

} // namespace orbelan::server
