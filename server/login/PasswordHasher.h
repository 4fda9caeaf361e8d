#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace orbelan::server {

// Checks passwords (and hashes new ones) on worker threads of its own, so
// that the serving thread never waits tens of milliseconds for one. Jobs
// wait in a bounded queue; finished checks wait until the serving thread
// takes them, and an eventfd (for the server's epoll set) is readable while
// any do. The threads start with the first job.
class PasswordHasher {
public:
    struct Job {
        std::uint64_t ticket = 0;
        std::string storedHash;
        std::string password;
        // Hashed when the password matches (a password change).
        std::optional<std::string> newPassword;
    };
    struct Result {
        std::uint64_t ticket = 0;
        bool matched = false;
        // The new password's hash, when there was one and the password matched.
        std::string newHash;
    };

    static constexpr std::size_t kDefaultThreads = 2;
    static constexpr std::size_t kDefaultQueueLimit = 64;

    explicit PasswordHasher(std::size_t threads = kDefaultThreads,
                            std::size_t queueLimit = kDefaultQueueLimit);
    ~PasswordHasher();
    PasswordHasher(const PasswordHasher&) = delete;
    PasswordHasher& operator=(const PasswordHasher&) = delete;

    // False, leaving the job undone, when the queue is full.
    bool submit(Job job);
    int descriptor() const { return eventFd_; }
    // The checks finished since the last call.
    std::vector<Result> take();

private:
    void work();
    static Result check(Job& job);

    std::size_t threadCount_;
    std::size_t queueLimit_;
    int eventFd_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Job> jobs_;
    std::vector<Result> results_;
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

} // namespace orbelan::server
