// The information grid of a large result table: reply 114 with 100,000
// rows of 10 columns read from the wire and put into the grid's model, and
// the totals of its numeric columns computed again.

#include "protocol/messages/MessageIO.h"
#include "protocol/messages/ResultTable.h"
#include "query/InfoGridModel.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

using namespace orbelan;

constexpr std::size_t kRows = 100'000;
constexpr std::int16_t kColumns = 10;

// The id, a name, then four long, two double and two single columns.
std::vector<GridColumn> columns()
{
    std::vector<GridColumn> grid{{"# Element", 0, false}, {"NAME", 202, false}};
    for (const int type : {3, 3, 3, 3, 5, 5, 4, 4}) {
        grid.push_back({QStringLiteral("F%1").arg(grid.size()), static_cast<std::int16_t>(type), true});
    }
    return grid;
}

DWBUffer reply()
{
    messages::ResultTable table{7, kColumns, {}, {}};
    for (std::size_t row = 0; row < kRows; ++row) {
        table.ids.push_back(static_cast<std::int32_t>(row + 1));
        table.values.push_back("PARCEL " + std::to_string(row));
        for (int column = 0; column < 4; ++column) {
            table.values.push_back(std::to_string(row % 1000 + static_cast<std::size_t>(column)));
        }
        for (int column = 0; column < 4; ++column) {
            table.values.push_back(std::to_string(static_cast<double>(row) / 7.0));
        }
    }
    return messages::buildMessage(table);
}

void BM_ResultTableIntoGrid(benchmark::State& state)
{
    const DWBUffer message = reply();
    for (auto _ : state) {
        DWBUffer received(message.bytes());
        messages::readHeader(received);
        const messages::ResultTable table = messages::ResultTable::decode(received);
        InfoGridModel grid(columns(), table, table.rowCount());
        benchmark::DoNotOptimize(grid.rowCount());
    }
}
BENCHMARK(BM_ResultTableIntoGrid)->Unit(benchmark::kMillisecond);

void BM_GridTotals(benchmark::State& state)
{
    DWBUffer received(reply().bytes());
    messages::readHeader(received);
    InfoGridModel grid(columns(), messages::ResultTable::decode(received), kRows);
    for (auto _ : state) {
        grid.computeTotals();
        benchmark::DoNotOptimize(grid.text(static_cast<int>(kRows), 2));
    }
}
BENCHMARK(BM_GridTotals)->Unit(benchmark::kMillisecond);

} // namespace
