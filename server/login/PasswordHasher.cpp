#include "login/PasswordHasher.h"

#include "login/PasswordHash.h"

#include <stdexcept>
#include <system_error>
#include <utility>

#include <cerrno>
#include <sys/eventfd.h>
#include <unistd.h>

namespace orbelan::server {

PasswordHasher::PasswordHasher(std::size_t threads, std::size_t queueLimit)
    : threadCount_(threads),
      queueLimit_(queueLimit),
      eventFd_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    if (eventFd_ < 0) {
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
}

PasswordHasher::~PasswordHasher()
{
    {
        const std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_all();
    for (std::thread& thread : threads_) {
        thread.join();
    }
    for (Job& job : jobs_) {
        PasswordHash::wipe(job.password);
    }
    ::close(eventFd_);
}

bool PasswordHasher::submit(Job job)
{
    {
        const std::lock_guard lock(mutex_);
        if (jobs_.size() >= queueLimit_) {
            return false;
        }
        jobs_.push_back(std::move(job));
        while (threads_.size() < threadCount_) {
            threads_.emplace_back([this] { work(); });
        }
    }
    wake_.notify_one();
    return true;
}

std::vector<PasswordHasher::Result> PasswordHasher::take()
{
    std::uint64_t signals = 0;
    [[maybe_unused]] const ssize_t read = ::read(eventFd_, &signals, sizeof signals);
    const std::lock_guard lock(mutex_);
    return std::exchange(results_, {});
}

void PasswordHasher::work()
{
    std::unique_lock lock(mutex_);
    while (true) {
        wake_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
        if (stopping_) {
            return;
        }
        Job job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        Result result = check(job);
        lock.lock();
        results_.push_back(std::move(result));
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t written = ::write(eventFd_, &one, sizeof one);
    }
}

PasswordHasher::Result PasswordHasher::check(Job& job)
{
    Result result{job.ticket, PasswordHash::matches(job.storedHash, job.password), {}};
    PasswordHash::wipe(job.password);
    if (job.newPassword) {
        if (result.matched) {
            try {
                result.newHash = PasswordHash::make(*job.newPassword);
            } catch (const std::runtime_error&) {
                // No hash: the change is refused.
            }
        }
        PasswordHash::wipe(*job.newPassword);
    }
    return result;
}

} // namespace orbelan::server
