#pragma once

#include <exception>
#include <functional>
#include <string>

namespace orbelan::server {

// What went amiss while answering a request, for the log.
struct Remarks {
    std::string text;
    bool notable = false;

    void add(const std::string& remark)
    {
        text += remark;
        notable = true;
    }
    // Runs a store read that fills a reply; a store failure leaves the reply
    // as it was (empty) and is noted.
    void attempt(const std::function<void()>& read)
    {
        try {
            read();
        } catch (const std::exception& error) {
            add(std::string("; store failure: ") + error.what());
        }
    }
};

} // namespace orbelan::server
