#include "VirtualDesktop/TemporaryFolder.hpp"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace vireline::desktop {

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vireline-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::system_error{errno, std::generic_category(), "mkdtemp"};
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}
