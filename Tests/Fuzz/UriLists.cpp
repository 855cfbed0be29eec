/// Fuzzes the data that other programs drop on a dock, in every supported format.
#include "Foundation/FileURL.hpp"
#include "Foundation/Require.hpp"
#include "Fuzz/FuzzTarget.hpp"
#include "Panels/DroppedText.hpp"

namespace vireline::xdg {
namespace {

void read(std::string_view content) {
    for (const std::string_view format : DroppedText::formats) {
        const auto urls = DroppedText::urls(format, content, "computer");
        require(urls.size() <= content.size(), "a URL takes a byte at least");
        for (const std::string& text : urls) {
            const auto url = FileURL::parse(text);
            if (!url)
                continue;
            require(url->path().starts_with('/'), "a path is absolute");
            require(url->path().find('\0') == std::string::npos, "a path has no zero byte");
            require(FileURL::parse(url->absoluteString()) == url, "a URL comes back the same");
        }
    }
}

}
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vireline::xdg::read(vireline::fuzz::text(data, size));
    return 0;
}
