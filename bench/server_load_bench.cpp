// Load on orbelan-server: N connections, each passing the access request, the
// map definition and the access levels of the Santiago demo map, then asking
// for every cell of every layer, one request awaiting its reply at a time.
// Reports cell requests per second (all connections together) and the p50
// and p99 latency of one cell request.

#include "DemoServerThread.h"
#include "LoadClient.h"
#include "Percentile.h"
#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/CellGeometry.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "storage/Database.h"
#include "demo/DemoBuilder.h"
#include "protocol/messages/LayerAccessLevels.h"
#include "protocol/messages/LayerAccessLevelsRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MapDefinitionRequest.h"
#include "storage/MapReader.h"
#include "serving/MapServer.h"
#include "protocol/messages/MessageIO.h"
#include "serving/ServerLog.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace orbelan;
using namespace orbelan::messages;
using Clock = std::chrono::steady_clock;

namespace {

// One connection's whole session; returns the latency of each cell request.
std::vector<double> oneSession(quint16 port)
{
    LoadClient client(port);
    if (!client.ask<AccessAnswer>(AccessRequest{1, 1}).granted()) {
        throw std::runtime_error("access refused");
    }
    const auto map = client.ask<MapDefinition>(MapDefinitionRequest{1});
    LayerAccessLevelsRequest levels{1, {}};
    for (const LayerRecord& layer : map.layers) {
        levels.layers.push_back(layer.id);
    }
    client.ask<LayerAccessLevels>(levels);
    std::vector<double> latencies;
    for (const LayerRecord& layer : map.layers) {
        for (std::int32_t row = layer.minCol; row <= layer.maxCol; ++row) {
            for (std::int32_t column = layer.minRow; column <= layer.maxRow; ++column) {
                const auto start = Clock::now();
                benchmark::DoNotOptimize(
                    client.ask<CellGeometry>(CellGeometryRequest{layer.id, row, column}));
                latencies.push_back(
                    std::chrono::duration<double, std::milli>(Clock::now() - start).count());
            }
        }
    }
    return latencies;
}

void BM_SantiagoCellRequests(benchmark::State& state)
{
    static DemoStore store;
    ServerUnderLoad server(store.path);
    const quint16 port = server.startServing();
    const auto connections = static_cast<std::size_t>(state.range(0));
    std::vector<double> latencies;
    std::mutex mutex;
    double seconds = 0.0;
    for (auto _ : state) {
        const auto start = Clock::now();
        std::vector<std::thread> clients;
        for (std::size_t c = 0; c < connections; ++c) {
            clients.emplace_back([&] {
                std::vector<double> own = oneSession(port);
                const std::lock_guard lock(mutex);
                latencies.insert(latencies.end(), own.begin(), own.end());
            });
        }
        for (std::thread& client : clients) {
            client.join();
        }
        const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();
        seconds += elapsed;
        state.SetIterationTime(elapsed);
    }
    state.counters["cell_requests_per_s"] = static_cast<double>(latencies.size()) / seconds;
    state.counters["p50_ms"] = percentile(latencies, 0.50);
    state.counters["p99_ms"] = percentile(latencies, 0.99);
}
BENCHMARK(BM_SantiagoCellRequests)->Arg(1)->Arg(32)->UseManualTime()->Unit(benchmark::kMillisecond);

// Connections that connect and then send nothing, spread over loopback
// addresses 127.0.1.x.
std::vector<int> idleConnections(quint16 port, std::int64_t count)
{
    std::vector<int> sockets;
    for (std::int64_t i = 0; i < count; ++i) {
        const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK + 256 + static_cast<std::uint32_t>(i / 200));
        ::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(port);
        if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
            throw std::runtime_error("cannot open an idle connection");
        }
        sockets.push_back(fd);
    }
    return sockets;
}

// One client's cell requests while many other connections stay idle: what
// a wake-up of the server costs should not depend on them.
void BM_SantiagoCellRequestsBesideIdleConnections(benchmark::State& state)
{
    static DemoStore store;
    server::ServingLimits limits;
    limits.connections = 1'000'000;
    limits.connectionsPerAddress = 1'000'000;
    ServerUnderLoad server(store.path, limits);
    const quint16 port = server.startServing();
    const std::vector<int> idle = idleConnections(port, state.range(0));
    std::this_thread::sleep_for(std::chrono::seconds(1));
    std::vector<double> latencies;
    double seconds = 0.0;
    for (auto _ : state) {
        const auto start = Clock::now();
        std::vector<double> own = oneSession(port);
        const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();
        seconds += elapsed;
        state.SetIterationTime(elapsed);
        latencies.insert(latencies.end(), own.begin(), own.end());
    }
    for (const int fd : idle) {
        ::close(fd);
    }
    state.counters["cell_requests_per_s"] = static_cast<double>(latencies.size()) / seconds;
    state.counters["p99_ms"] = percentile(latencies, 0.99);
}
// 9,000 idle connections take 18,000 descriptors in this one process.
BENCHMARK(BM_SantiagoCellRequestsBesideIdleConnections)
    ->Arg(10)
    ->Arg(9'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    rlimit descriptors{};
    getrlimit(RLIMIT_NOFILE, &descriptors);
    descriptors.rlim_cur = descriptors.rlim_max;
    setrlimit(RLIMIT_NOFILE, &descriptors);
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
