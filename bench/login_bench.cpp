// Logins on orbelan-server: what checking one password costs, and whether a
// crowd logging in holds up a viewer that is already drawing its map.

#include "DemoServerThread.h"
#include "LoadClient.h"
#include "Percentile.h"
#include "login/LoginPolicy.h"
#include "login/PasswordHash.h"
#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/CellGeometry.h"
#include "protocol/messages/CellGeometryRequest.h"
#include "protocol/messages/LoginAnswer.h"
#include "protocol/messages/LoginRequest.h"
#include "protocol/messages/MapDefinition.h"
#include "protocol/messages/MapDefinitionRequest.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

using namespace orbelan;
using namespace orbelan::messages;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kCrowd = 20;
constexpr int kLoginsPerConnection = 10;

double milliseconds(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

// The server's whole work for one login's password: the check with the
// stored hash's limits.
void BM_PasswordCheck(benchmark::State& state)
{
    const std::string hash = server::PasswordHash::make("admin");
    for (auto _ : state) {
        benchmark::DoNotOptimize(server::PasswordHash::matches(hash, "admin"));
    }
}
BENCHMARK(BM_PasswordCheck)->Unit(benchmark::kMillisecond)->UseRealTime();

LoginAnswer logIn(quint16 port, const std::string& name)
{
    LoadClient client(port);
    return client.ask<LoginAnswer>(LoginRequest{name, name});
}

// A viewer logged in as admin asks for the cells of Santiago one after the
// other while 20 connections log in 10 times each as visor, all at once.
// Reports the viewer's cell latency and the logins' own latency.
void BM_CellRequestsDuringALoginCrowd(benchmark::State& state)
{
    static DemoStore store;
    ServerUnderLoad server(store.path, {}, server::LoginPolicy{});
    const quint16 port = server.startServing();
    if (logIn(port, "admin").userId != 1) {
        throw std::runtime_error("admin cannot log in");
    }
    LoadClient viewer(port);
    if (!viewer.ask<AccessAnswer>(AccessRequest{1, 1}).granted()) {
        throw std::runtime_error("access refused after the login");
    }
    const auto map = viewer.ask<MapDefinition>(MapDefinitionRequest{1});
    std::vector<CellGeometryRequest> cells;
    for (const LayerRecord& layer : map.layers) {
        for (std::int32_t row = layer.minCol; row <= layer.maxCol; ++row) {
            for (std::int32_t column = layer.minRow; column <= layer.maxRow; ++column) {
                cells.push_back({layer.id, row, column});
            }
        }
    }
    std::vector<double> cellLatencies;
    std::vector<double> loginLatencies;
    std::mutex mutex;
    int refused = 0;
    double seconds = 0;
    for (auto _ : state) {
        std::atomic<int> crowdLeft{kCrowd};
        const auto start = Clock::now();
        std::vector<std::thread> crowd;
        for (int c = 0; c < kCrowd; ++c) {
            crowd.emplace_back([&] {
                for (int i = 0; i < kLoginsPerConnection; ++i) {
                    const auto asked = Clock::now();
                    const bool accepted = logIn(port, "visor").accepted();
                    const std::lock_guard lock(mutex);
                    loginLatencies.push_back(milliseconds(Clock::now() - asked));
                    refused += accepted ? 0 : 1;
                }
                --crowdLeft;
            });
        }
        for (std::size_t i = 0; crowdLeft > 0; i = (i + 1) % cells.size()) {
            const auto asked = Clock::now();
            benchmark::DoNotOptimize(viewer.ask<CellGeometry>(cells[i]));
            cellLatencies.push_back(milliseconds(Clock::now() - asked));
        }
        for (std::thread& thread : crowd) {
            thread.join();
        }
        const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();
        seconds += elapsed;
        state.SetIterationTime(elapsed);
    }
    state.counters["logins_per_s"] = static_cast<double>(loginLatencies.size()) / seconds;
    state.counters["logins_refused"] = refused;
    state.counters["login_p50_ms"] = percentile(loginLatencies, 0.50);
    state.counters["login_p99_ms"] = percentile(loginLatencies, 0.99);
    state.counters["cells"] = static_cast<double>(cellLatencies.size());
    state.counters["cell_p50_ms"] = percentile(cellLatencies, 0.50);
    state.counters["cell_p99_ms"] = percentile(cellLatencies, 0.99);
}
BENCHMARK(BM_CellRequestsDuringALoginCrowd)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
