#pragma once

#include <ostream>
#include <string>

namespace orbelan::server {

// The server's log: one line per connection opened or closed and per refused
// or malformed request, always; one line per request when verbose.
class ServerLog {
public:
    ServerLog(std::ostream& out, bool verbose);

    bool verbose() const { return verbose_; }
    void line(const std::string& text);
    // Written only when verbose.
    void detail(const std::string& text);

private:
    std::ostream& out_;
    bool verbose_;
};

} // namespace orbelan::server
