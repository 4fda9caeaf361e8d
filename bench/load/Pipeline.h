#pragma once

#include "load/RequestSource.h"
#include "load/WireConnection.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

namespace orbelan::load {

// One connection that sends its source's requests without awaiting each
// reply, keeping at most a bounded number of request bytes unanswered, and
// reads the replies as they come.
class Pipeline {
public:
    // Requests are written in batches of about this size.
    static constexpr std::size_t kBatchBytes = 16 * 1024;

    Pipeline(WireConnection connection, std::unique_ptr<RequestSource> source, std::size_t inFlightLimit);

    int fd() const { return connection_.socket().fd(); }
    // The poll events it waits for now.
    short wanted() const;
    // Writes and reads what it can without waiting.
    void advance(short events);
    // Every request answered, or the connection closed.
    bool finished() const;

    std::size_t sent() const { return sent_; }
    std::size_t answered() const { return answered_; }
    bool closed() const { return closed_; }

private:
    bool mayWrite() const;
    void refill();
    void write();
    void read();

    WireConnection connection_;
    std::unique_ptr<RequestSource> source_;
    std::size_t inFlightLimit_;
    std::vector<std::uint8_t> outgoing_;
    std::size_t written_ = 0;
    std::deque<std::size_t> inFlight_;
    std::size_t inFlightBytes_ = 0;
    bool dry_ = false;
    bool closed_ = false;
    std::size_t sent_ = 0;
    std::size_t answered_ = 0;
};

} // namespace orbelan::load
