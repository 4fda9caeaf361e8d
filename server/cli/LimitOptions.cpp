#include "cli/LimitOptions.h"

#include "cli/OptionValues.h"

#include <chrono>
#include <cstdint>

namespace orbelan::server {

namespace {

constexpr std::int64_t kMebibyte = 1024 * 1024;
// A day, and a tebibyte: far beyond any sensible setting, yet safe to count in.
constexpr std::int64_t kLongestTimeout = 24 * 3600;
constexpr std::int64_t kLargestBudget = 1024 * 1024;

const ServingLimits kDefaults;

QString number(std::int64_t value)
{
    return QString::number(value);
}

QString mebibytes(std::size_t bytes)
{
    return number(static_cast<std::int64_t>(bytes) / kMebibyte);
}

std::size_t budgetOf(const QCommandLineParser& parser, const QString& name)
{
    return static_cast<std::size_t>(OptionValues::integer(parser, name, 1, kLargestBudget) *
                                    kMebibyte);
}

std::chrono::seconds secondsOf(const QCommandLineParser& parser, const QString& name)
{
    return std::chrono::seconds(OptionValues::integer(parser, name, 1, kLongestTimeout));
}

} // namespace

void LimitOptions::add(QCommandLineParser& parser)
{
    parser.addOptions({
        {QStringLiteral("max-connections"),
         QStringLiteral("Connections open at once (default %1).").arg(kDefaults.connections),
         QStringLiteral("N"), number(kDefaults.connections)},
        {QStringLiteral("max-connections-per-address"),
         QStringLiteral("Connections open at once from one client address (default %1).")
             .arg(kDefaults.connectionsPerAddress),
         QStringLiteral("N"), number(kDefaults.connectionsPerAddress)},
        {QStringLiteral("idle-timeout"),
         QStringLiteral("Seconds after which a connection that neither sends nor takes a byte "
                        "is closed (default %1).")
             .arg(kDefaults.idleTimeout.count()),
         QStringLiteral("S"), number(kDefaults.idleTimeout.count())},
        {QStringLiteral("request-timeout"),
         QStringLiteral("Seconds within which a request that has started must be whole "
                        "(default %1).")
             .arg(kDefaults.requestTimeout.count()),
         QStringLiteral("S"), number(kDefaults.requestTimeout.count())},
        {QStringLiteral("unsent-budget"),
         QStringLiteral("MiB of replies waiting to be sent, all connections together "
                        "(default %1).")
             .arg(mebibytes(kDefaults.unsentBudget)),
         QStringLiteral("MIB"), mebibytes(kDefaults.unsentBudget)},
        {QStringLiteral("cache-budget"),
         QStringLiteral("MiB of cell replies kept once built (default %1).")
             .arg(mebibytes(kDefaults.cacheBudget)),
         QStringLiteral("MIB"), mebibytes(kDefaults.cacheBudget)},
    });
}

ServingLimits LimitOptions::read(const QCommandLineParser& parser)
{
    ServingLimits limits;
    limits.connections = static_cast<int>(
        OptionValues::integer(parser, QStringLiteral("max-connections"), 1, 1'000'000));
    limits.connectionsPerAddress = static_cast<int>(OptionValues::integer(
        parser, QStringLiteral("max-connections-per-address"), 1, 1'000'000));
    limits.idleTimeout = secondsOf(parser, QStringLiteral("idle-timeout"));
    limits.requestTimeout = secondsOf(parser, QStringLiteral("request-timeout"));
    limits.unsentBudget = budgetOf(parser, QStringLiteral("unsent-budget"));
    limits.cacheBudget = budgetOf(parser, QStringLiteral("cache-budget"));
    return limits;
}

} // namespace orbelan::server
