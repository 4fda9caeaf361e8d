#include "serving/ConnectionAdmission.h"

namespace orbelan::server {

ConnectionAdmission::ConnectionAdmission(int total, int perAddress)
    : total_(total),
      perAddress_(perAddress)
{
}

std::optional<std::string> ConnectionAdmission::admit(const std::string& address)
{
    if (open_ >= total_) {
        return "the server has " + std::to_string(open_) + " connections open, its cap";
    }
    int& fromAddress = byAddress_[address];
    if (fromAddress >= perAddress_) {
        return "the address has " + std::to_string(fromAddress) + " connections open, its cap";
    }
    ++fromAddress;
    ++open_;
    return std::nullopt;
}

void ConnectionAdmission::release(const std::string& address)
{
    const auto found = byAddress_.find(address);
    if (found == byAddress_.end()) {
        return;
    }
    --open_;
    if (--found->second == 0) {
        byAddress_.erase(found);
    }
}

} // namespace orbelan::server
