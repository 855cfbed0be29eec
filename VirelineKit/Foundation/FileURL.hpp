/// The location of a file or folder: an absolute path that also reads as a "file:" URL. A path is
/// bytes, in the encoding of the file system; only the URL text is percent-encoded.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace vireline {

class FileURL {
public:
    /// The root folder.
    FileURL() = default;

    /// From an absolute file-system path. A trailing slash is dropped, except for the root folder.
    [[nodiscard]] static FileURL fromPath(std::string_view path);

    /// From URL text such as "file:///Applications/Mail.app/", with an empty or "localhost" host.
    /// Returns nullopt if the text is not a URL, its scheme is not "file", its path is not
    /// absolute, or an escape is malformed or encodes a zero byte.
    [[nodiscard]] static std::optional<FileURL> parse(std::string_view text);

    [[nodiscard]] const std::string& path() const noexcept { return path_; }

    /// The percent-encoded URL, for example "file:///home/a%20b".
    [[nodiscard]] std::string absoluteString() const;

    /// The text after the last slash; "/" for the root folder.
    [[nodiscard]] std::string lastPathComponent() const;

    /// The text after the last dot of the last component. Empty if there is no dot, or only a
    /// leading one.
    [[nodiscard]] std::string pathExtension() const;

    [[nodiscard]] FileURL appending(std::string_view component) const;

    /// The containing folder. The root folder is its own parent.
    [[nodiscard]] FileURL parent() const;

    bool operator==(const FileURL&) const = default;

private:
    explicit FileURL(std::string path) : path_(std::move(path)) {}

    std::string path_ = "/";
};

inline std::ostream& operator<<(std::ostream& out, const FileURL& url) {
    return out << url.path();
}

}
