#pragma once

#include "load/LoadOptions.h"
#include "load/RowResult.h"
#include "load/ServerLaunch.h"

#include <functional>
#include <string>
#include <vector>

namespace orbelan::load {

// Runs the rows the options ask for: idle, empty-cells, layer-ids,
// never-read and signature on one server, descriptors and sigterm each on a
// server of its own. Server logs go to a fresh directory under /tmp.
class LoadTool {
public:
    explicit LoadTool(LoadOptions options);

    // The results in the report's row order.
    std::vector<RowResult> run();
    const std::string& logDirectory() const { return logDirectory_; }

private:
    void runSharedServerRows();
    void runDescriptorsRow();
    void runSigtermRow();
    // Runs the row when asked for; a row that cannot finish is reported as
    // such and the others still run.
    void attempt(const std::string& name, const std::function<RowResult()>& row);
    ServerLaunch launch(const std::string& logName) const;

    LoadOptions options_;
    std::string logDirectory_;
    std::vector<RowResult> results_;
};

} // namespace orbelan::load
