/// Runs a fuzz target once on every file below the folders that it is given. So the corpora, with
/// all that once broke something, are read again with every run of the tests, whatever the
/// compiler.
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
        // What stands here last when a target stops the process is the file that made it do so.
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
