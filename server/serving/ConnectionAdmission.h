#pragma once

#include <optional>
#include <string>
#include <unordered_map>

namespace orbelan::server {

// Counts the open connections, all together and per client address, and
// admits a new one only within both caps.
class ConnectionAdmission {
public:
    ConnectionAdmission(int total, int perAddress);

    // Nothing when the connection may open (it is then counted), else why
    // it may not.
    std::optional<std::string> admit(const std::string& address);
    // A connection admitted from the address has closed.
    void release(const std::string& address);
    int open() const { return open_; }

private:
    int total_;
    int perAddress_;
    int open_ = 0;
    std::unordered_map<std::string, int> byAddress_;
};

} // namespace orbelan::server
