// Attribute requests to orbelan-server over loopback, on the Santiago demo
// map: conditions over the 13,312 parcels (request 13, answered with reply
// 113), the statistics of their fields (6, answered with 106), and an update of 10,000 parcels (221) until the sender and a second
// connection on the map have each received the 10,000 changes (250).

#include "DemoServerThread.h"
#include "LoadClient.h"
#include "demo/SantiagoGenerator.h"
#include "protocol/messages/AccessAnswer.h"
#include "protocol/messages/AccessRequest.h"
#include "protocol/messages/Condition.h"
#include "protocol/messages/ElementChange.h"
#include "protocol/messages/FieldStatistics.h"
#include "protocol/messages/FieldStatisticsRequest.h"
#include "protocol/messages/FindByConditionRequest.h"
#include "protocol/messages/FindByConditionResult.h"
#include "protocol/messages/MultipleAttributeUpdate.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

using namespace orbelan;
using namespace orbelan::messages;
namespace op = orbelan::messages::conditionop;

namespace {

constexpr std::int32_t kSantiago = server::SantiagoGenerator::kMapCode;
constexpr std::int32_t kParcels = server::SantiagoGenerator::kParcelsLayer;

DemoStore& demoStore()
{
    static DemoStore store;
    return store;
}

std::unique_ptr<LoadClient> admitted(quint16 port)
{
    auto client = std::make_unique<LoadClient>(port);
    if (!client->ask<AccessAnswer>(AccessRequest{1, kSantiago}).granted()) {
        throw std::runtime_error("access refused");
    }
    return client;
}

// The conditions, by benchmark argument.
const Condition kConditions[] = {
    {kParcels, "USO", 202, op::kEqual, "residencial", ""},
    {kParcels, "ROL", 202, op::kStartingWith, "12", ""},
    {kParcels, "ROL", 202, op::kContaining, "-3", ""},
    {kParcels, "AREA", 5, op::kBetween, "3000", "3500"},
    {kParcels, "USO", 202, op::kDifferent, "Comercial", ""},
    {kParcels, "ROL", 202, op::kEqual, "1200-2", ""},
    {kParcels, "ROL", 202, op::kEndingWith, "1200-2", ""},
};

void BM_FindParcelsByCondition(benchmark::State& state)
{
    ServerUnderLoad server(demoStore().path);
    auto client = admitted(server.startServing());
    const Condition& condition = kConditions[state.range(0)];
    std::size_t found = 0;
    for (auto _ : state) {
        found = client->ask<FindByConditionResult>(FindByConditionRequest{condition}).elements.size();
    }
    state.SetLabel(condition.field + " operator " + std::to_string(condition.op) + " \"" +
                   condition.value1 + "\"");
    state.counters["elements"] = static_cast<double>(found);
}
BENCHMARK(BM_FindParcelsByCondition)->DenseRange(0, 6)->Unit(benchmark::kMillisecond);

// The statistics a classification asks for, by benchmark argument: the
// land uses and the range of areas that the layer setup uses, then the
// widest answers, every parcel's distinct area and roll.
const FieldStatisticsRequest kStatistics[] = {
    {kParcels, "USO", 1},
    {kParcels, "AREA", 2},
    {kParcels, "ROL", 2},
    {kParcels, "AREA", 1},
    {kParcels, "ROL", 1},
};

void BM_ParcelFieldStatistics(benchmark::State& state)
{
    ServerUnderLoad server(demoStore().path);
    auto client = admitted(server.startServing());
    const FieldStatisticsRequest& request = kStatistics[state.range(0)];
    std::size_t values = 0;
    for (auto _ : state) {
        values = client->ask<FieldStatistics>(request).values.size();
    }
    state.SetLabel(request.field + " method " + std::to_string(request.method));
    state.counters["values"] = static_cast<double>(values);
}
BENCHMARK(BM_ParcelFieldStatistics)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

void receiveChanges(LoadClient& client, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        DWBUffer message = client.receive();
        if (readHeader(message) != ElementChange::kCode) {
            throw std::runtime_error("a message other than a change came");
        }
    }
}

// Each iteration gives the parcels another land use, so that every update
// changes every row.
void BM_UpdateTenThousandParcels(benchmark::State& state)
{
    ServerUnderLoad server(demoStore().path);
    const quint16 port = server.startServing();
    auto sender = admitted(port);
    auto other = admitted(port);
    MultipleAttributeUpdate update{kParcels, std::vector<std::int32_t>(10'000), {}, {}, {{"USO", 202, {}}}};
    std::iota(update.elements.begin(), update.elements.end(), 1);
    const char* uses[] = {"Comercial", "Industrial"};
    std::size_t round = 0;
    for (auto _ : state) {
        update.fields[0].value = uses[round++ % 2];
        sender->send(update);
        receiveChanges(*sender, update.elements.size());
        receiveChanges(*other, update.elements.size());
    }
}
BENCHMARK(BM_UpdateTenThousandParcels)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
