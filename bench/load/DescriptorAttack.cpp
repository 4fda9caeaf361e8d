#include "load/DescriptorAttack.h"

#include "load/TextFormat.h"
#include "load/WellBehavedClient.h"
#include "load/WireConnection.h"
#include "protocol/messages/AccessRequest.h"

#include <algorithm>
#include <cctype>
#include <thread>

namespace orbelan::load {

namespace {

using Clock = std::chrono::steady_clock;

bool mentionsDescriptors(std::string line)
{
    std::ranges::transform(line, line.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (const char* word : {"descriptor", "too many open files", "emfile", "enfile"}) {
        if (line.find(word) != std::string::npos) {
            return true;
        }
    }
    return false;
}

} // namespace

DescriptorAttack::DescriptorAttack(const ServerProcess& server)
    : server_(server),
      logStart_(server.logLines().size()),
      swarm_(server.endpoint(), kConnections, std::chrono::seconds(2)),
      cpuPercent_(cpuPercent())
{
}

double DescriptorAttack::cpuPercent() const
{
    const double before = server_.cpuSeconds();
    const auto start = Clock::now();
    std::this_thread::sleep_for(kCpuWindow);
    const double wall = std::chrono::duration<double>(Clock::now() - start).count();
    return 100.0 * (server_.cpuSeconds() - before) / wall;
}

void DescriptorAttack::leave()
{
    swarm_.leave();
    reconnect_ = reconnect();
}

std::string DescriptorAttack::reconnect() const
{
    const auto start = Clock::now();
    try {
        WireConnection client(server_.endpoint());
        client.sendMessage(messages::AccessRequest{WellBehavedClient::kUser, WellBehavedClient::kMap});
        client.receive(kReconnectTimeout);
        const auto waited = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
        return "a new client was answered " + fixed(waited, 1) + " ms after the attackers left";
    } catch (const std::exception& error) {
        return std::string("a new client got no answer after the attackers left (") + error.what() + ")";
    }
}

std::string DescriptorAttack::descriptorLogLines() const
{
    const auto lines = server_.logLines();
    const auto skipped = static_cast<std::ptrdiff_t>(std::min(logStart_, lines.size()));
    const auto fresh = std::ranges::subrange(lines.begin() + skipped, lines.end());
    const auto count = std::ranges::count_if(fresh, mentionsDescriptors);
    if (count == 0) {
        return "no log line mentions descriptors";
    }
    const auto first = std::ranges::find_if(fresh, mentionsDescriptors);
    return grouped(static_cast<std::uint64_t>(count)) + " log line(s) mention descriptors, the first: \"" + *first +
           "\"";
}

std::string DescriptorAttack::observation() const
{
    return grouped(swarm_.established()) + " of " + grouped(swarm_.attempted()) +
           " attackers connected; server CPU " + fixed(cpuPercent_, 0) + "% while they stayed; " + reconnect_ + "; " +
           descriptorLogLines();
}

} // namespace orbelan::load
