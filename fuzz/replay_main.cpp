// Runs a fuzz target over saved inputs, so that the corpus is replayed as an
// ordinary test by any compiler. Arguments are files or folders of files.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
// Optional, as for libFuzzer: a target that needs set-up defines it.
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

void replay(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

} // namespace

int main(int argc, char** argv)
{
    if (LLVMFuzzerInitialize) {
        LLVMFuzzerInitialize(&argc, &argv);
    }
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path argument(argv[i]);
        if (std::filesystem::is_directory(argument)) {
            for (const auto& entry : std::filesystem::directory_iterator(argument)) {
                replay(entry.path());
                ++count;
            }
        } else {
            replay(argument);
            ++count;
        }
    }
    std::cout << "replayed " << count << " input(s)\n";
    return count > 0 ? 0 : 1;
}
