#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace orbelan::load {

// The command line of orbelan-load.
struct LoadOptions {
    // The rows of the report, in order; --only takes one of these names.
    static constexpr std::array<std::string_view, 7> kRows{
        "idle", "descriptors", "never-read", "empty-cells", "layer-ids", "signature", "sigterm"};
    static constexpr double kMaximumSeconds = 60.0;

    std::string server;
    std::string database;
    std::string only;
    double seconds = 5.0;
    std::vector<std::string> serverArguments;
    // Where the server listens: 127.0.0.1 unless a --listen among the
    // server arguments says otherwise (and then still loopback).
    std::string address = "127.0.0.1";
    bool help = false;

    // Throws std::invalid_argument with the reason.
    static LoadOptions parse(int argc, char** argv);
    static std::string usage();
    bool runs(std::string_view row) const { return only.empty() || only == row; }

private:
    void check();
    void takeListenAddress();
};

} // namespace orbelan::load
