#include "load/LoadOptions.h"

#include "load/TcpSocket.h"

#include <algorithm>
#include <stdexcept>
#include <unistd.h>

namespace orbelan::load {

namespace {

std::string valueOf(int argc, char** argv, int& index)
{
    if (index + 1 >= argc) {
        throw std::invalid_argument(std::string(argv[index]) + " needs a value");
    }
    return argv[++index];
}

double secondsFrom(const std::string& text)
{
    std::size_t used = 0;
    double seconds = 0.0;
    try {
        seconds = std::stod(text, &used);
    } catch (const std::logic_error&) {
        used = 0;
    }
    if (used != text.size() || !(seconds >= 0.1 && seconds <= LoadOptions::kMaximumSeconds)) {
        throw std::invalid_argument("--seconds takes a number from 0.1 to 60");
    }
    return seconds;
}

} // namespace

std::string LoadOptions::usage()
{
    return "usage: orbelan-load --server PATH/orbelan-server --db STORE [--only ROW] [--seconds S]\n"
           "                    [--server-arg ARG]...\n"
           "Starts the server on a free loopback port, loads it with each hostile row and prints one\n"
           "markdown table. Rows: idle, descriptors, never-read, empty-cells, layer-ids, signature,\n"
           "sigterm. S is the length of each well-behaved client run (default 5, at most 60).\n";
}

LoadOptions LoadOptions::parse(int argc, char** argv)
{
    LoadOptions options;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--help" || word == "-h") {
            options.help = true;
        } else if (word == "--server") {
            options.server = valueOf(argc, argv, i);
        } else if (word == "--db") {
            options.database = valueOf(argc, argv, i);
        } else if (word == "--only") {
            options.only = valueOf(argc, argv, i);
        } else if (word == "--seconds") {
            options.seconds = secondsFrom(valueOf(argc, argv, i));
        } else if (word == "--server-arg") {
            options.serverArguments.push_back(valueOf(argc, argv, i));
        } else {
            throw std::invalid_argument("unknown argument " + word);
        }
    }
    if (!options.help) {
        options.check();
    }
    return options;
}

void LoadOptions::check()
{
    if (server.empty() || database.empty()) {
        throw std::invalid_argument("--server and --db are required");
    }
    if (::access(server.c_str(), X_OK) != 0) {
        throw std::invalid_argument("--server " + server + " is not a program this user may run");
    }
    if (!only.empty() && std::ranges::find(kRows, only) == kRows.end()) {
        throw std::invalid_argument("--only takes a row name, not " + only);
    }
    if (std::ranges::any_of(serverArguments, [](const std::string& a) { return a.starts_with("--port"); })) {
        throw std::invalid_argument("the tool chooses the server's port itself");
    }
    takeListenAddress();
}

// The last --listen wins, as in the server; whatever it names must be
// loopback.
void LoadOptions::takeListenAddress()
{
    for (std::size_t i = 0; i < serverArguments.size(); ++i) {
        const std::string& word = serverArguments[i];
        if (word == "--listen" && i + 1 < serverArguments.size()) {
            address = serverArguments[i + 1];
        } else if (word.starts_with("--listen=")) {
            address = word.substr(9);
        }
    }
    TcpSocket::loopback(address, 0);
}

} // namespace orbelan::load
