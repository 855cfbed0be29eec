/// Runs a fuzz target once on every file in the given folders, so that the corpora, including
/// earlier crashes, are checked in every test run and with every compiler.
#include "Fuzz/FuzzTarget.hpp"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

int replay(const fs::path& folder) {
    int count = 0;
    for (const auto& entry : fs::recursive_directory_iterator{folder}) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream file{entry.path(), std::ios::binary};
        const std::vector<std::uint8_t> content{std::istreambuf_iterator<char>{file}, {}};
        // If the target aborts, the last path printed is the file that caused it.
        std::fprintf(stderr, "%s\n", entry.path().c_str());
        LLVMFuzzerTestOneInput(content.data(), content.size());
        ++count;
    }
    return count;
}

}

int main(int argc, char** argv) {
    int count = 0;
    for (const std::string& folder : std::vector<std::string>(argv + 1, argv + argc))
        count += replay(folder);
    std::printf("%d files read\n", count);
    return count > 0 ? 0 : 1;
}
