#include "load/LoadTool.h"

#include "load/AttackRow.h"
#include "load/DescriptorAttack.h"
#include "load/IdleAttack.h"
#include "load/LargestCell.h"
#include "load/NeverReadAttack.h"
#include "load/PipelineAttacks.h"
#include "load/ServerProcess.h"
#include "load/ShutdownCheck.h"
#include "load/SignatureCheck.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <utility>

namespace orbelan::load {

namespace {

// The descriptor row's server gets this RLIMIT_NOFILE.
constexpr rlim_t kScarceDescriptors = 128;
constexpr std::chrono::seconds kStopDeadline{10};

std::string makeLogDirectory()
{
    std::string path = "/tmp/orbelan-load-XXXXXX";
    if (::mkdtemp(path.data()) == nullptr) {
        throw std::runtime_error(std::string("cannot make a log directory under /tmp: ") + std::strerror(errno));
    }
    return path;
}

// A memory row runs twice: the second run shows whether memory the first
// left behind (a full cache, the allocator's pages) grows further.
const std::string kAgain = " again";

std::size_t rowIndex(const RowResult& row)
{
    const std::string name = row.name.substr(0, row.name.find(' '));
    return static_cast<std::size_t>(std::ranges::find(LoadOptions::kRows, name) - LoadOptions::kRows.begin());
}

} // namespace

LoadTool::LoadTool(LoadOptions options) : options_(std::move(options)), logDirectory_(makeLogDirectory()) {}

std::vector<RowResult> LoadTool::run()
{
    runSharedServerRows();
    runDescriptorsRow();
    runSigtermRow();
    std::ranges::stable_sort(results_, {}, rowIndex);
    return results_;
}

ServerLaunch LoadTool::launch(const std::string& logName) const
{
    return {.binary = options_.server,
            .database = options_.database,
            .address = options_.address,
            .extraArguments = options_.serverArguments,
            .logPath = logDirectory_ + "/" + logName,
            .descriptorLimit = std::nullopt};
}

void LoadTool::attempt(const std::string& name, const std::function<RowResult()>& row)
{
    if (!options_.runs(name)) {
        return;
    }
    std::cerr << "orbelan-load: " << name << "\n";
    try {
        results_.push_back(row());
    } catch (const std::exception& error) {
        results_.push_back(RowResult::observed(name, std::string("the row could not finish: ") + error.what()));
    }
}

void LoadTool::runSharedServerRows()
{
    if (!std::ranges::any_of(std::array{"idle", "never-read", "empty-cells", "layer-ids", "signature"},
                             [this](const char* name) { return options_.runs(name); })) {
        return;
    }
    ServerProcess server(launch("server.log"));
    const sockaddr_in endpoint = server.endpoint();
    const AttackRow rows(server, std::chrono::duration<double>(options_.seconds));
    attempt("idle", [&] { return rows.run("idle", [&] { return std::make_unique<IdleAttack>(endpoint); }); });
    for (const std::string& pass : {std::string(), kAgain}) {
        attempt("empty-cells", [&] { return rows.run("empty-cells" + pass, [&] { return emptyCellsAttack(endpoint); }); });
        attempt("layer-ids", [&] { return rows.run("layer-ids" + pass, [&] { return layerIdsAttack(endpoint); }); });
    }
    // Last of the memory rows: the most memory a server may keep after its
    // attackers left would hide what the rows after it add.
    for (const std::string& pass : {std::string(), kAgain}) {
        attempt("never-read", [&] {
            const LargestCell target = LargestCell::find(endpoint);
            return rows.run("never-read" + pass, [&] { return std::make_unique<NeverReadAttack>(endpoint, target); });
        });
    }
    attempt("signature", [&] { return SignatureCheck(server).run(); });
    server.stop(SIGTERM, kStopDeadline);
}

void LoadTool::runDescriptorsRow()
{
    if (!options_.runs("descriptors")) {
        return;
    }
    ServerLaunch scarce = launch("descriptors.log");
    scarce.descriptorLimit = kScarceDescriptors;
    ServerProcess server(scarce);
    attempt("descriptors", [&] {
        return AttackRow(server, std::chrono::duration<double>(options_.seconds)).run("descriptors", [&] {
            return std::make_unique<DescriptorAttack>(server);
        });
    });
    server.stop(SIGTERM, kStopDeadline);
}

void LoadTool::runSigtermRow()
{
    attempt("sigterm", [this] { return ShutdownCheck(launch("sigterm.log")).run(); });
}

} // namespace orbelan::load
