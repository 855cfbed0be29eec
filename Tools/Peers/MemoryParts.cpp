#include "Peers/MemoryParts.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <set>
#include <sstream>
#include <string_view>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

struct Family {
    std::string_view name;
    std::vector<std::string_view> beginnings;
};

/// By the beginning of file names; the first match counts.
const std::vector<Family>& families() {
    static const std::vector<Family> all{
        {"Qt", {"libQt", "libq", "libxkbcommon", "libmd4c", "libdouble-conversion", "libpcre2-16"}},
        {"GTK", {"libgtk", "libgdk-3", "libatk", "libatspi", "libepoxy", "libwayland"}},
        {"ICU", {"libicu"}},
        {"OpenGL",
         {"libGL", "libEGL", "libOpenGL", "libgallium", "libdrm", "libgbm", "libLLVM", "swrast",
          "libglapi"}},
        {"GLib",
         {"libglib", "libgio", "libgobject", "libgmodule", "libgthread", "libgdk_pixbuf",
          "libdconf", "libgvfs", "libdbus", "libffi"}},
        {"X11", {"libX", "libxcb", "libICE", "libSM", "libx"}},
        {"C++ and C",
         {"libc.", "libc-", "libm.", "libm-", "libstdc++", "libgcc", "ld-linux", "libpthread",
          "libdl", "librt", "libresolv"}},
        {"fonts and pictures",
         {"libfreetype", "libfontconfig", "libharfbuzz", "libgraphite", "libpng", "libjpeg",
          "libcairo", "libpango", "libpixman", "librsvg", "libfribidi", "libthai", "libdatrie",
          "libImlib", "libtiff", "libwebp", "DejaVu"}},
    };
    return all;
}

std::string familyOf(const std::string& mapping, const std::string& program) {
    if (mapping.empty())
        return "data";
    if (mapping.front() == '[')
        return mapping == "[vdso]" || mapping == "[vvar]" ? "C++ and C" : "data";
    if (mapping == program)
        return "its own program";
    if (mapping.starts_with("/SYSV") || mapping.starts_with("/memfd") ||
        mapping.starts_with("/dev/shm"))
        return "memory shared with the X server";
    if (mapping.find("/fontconfig/") != std::string::npos ||
        mapping.find("/fonts/") != std::string::npos)
        return "fonts and pictures";
    if (mapping.find("/qt") != std::string::npos)
        return "Qt";
    const std::string file = fs::path{mapping}.filename();
    for (const Family& family : families()) {
        const bool fits = std::ranges::any_of(family.beginnings, [&](std::string_view beginning) {
            return file.starts_with(beginning);
        });
        if (fits)
            return std::string{family.name};
    }
    return "other libraries and files";
}

/// A mapping's first line has its addresses, permissions, offset, device, inode and name.
bool isHead(const std::string& line) {
    const auto word = line.substr(0, line.find(' '));
    return word.find('-') != std::string::npos && !word.ends_with(':');
}

std::string nameIn(const std::string& head) {
    std::istringstream fields{head};
    std::string field;
    constexpr int before = 5;
    for (int i = 0; i < before; ++i)
        fields >> field;
    std::string name;
    std::getline(fields >> std::ws, name);
    constexpr std::string_view deleted = " (deleted)";
    if (name.ends_with(deleted))
        name.resize(name.size() - deleted.size());
    return name;
}

void add(MemoryPart& part, const std::string& line) {
    const auto colon = line.find(':');
    const auto key = line.substr(0, colon);
    const long value = std::strtol(line.c_str() + colon + 1, nullptr, 10);
    if (key == "Rss")
        part.resident += value;
    else if (key == "Pss")
        part.proportional += value;
    else if (key == "Private_Clean" || key == "Private_Dirty")
        part.own += value;
}

void addProcess(std::map<std::string, MemoryPart>& parts, pid_t pid) {
    const auto folder = fs::path{"/proc"} / std::to_string(pid);
    std::error_code gone;
    const std::string program = fs::read_symlink(folder / "exe", gone);
    std::ifstream file{folder / "smaps"};
    MemoryPart* part = nullptr;
    for (std::string line; std::getline(file, line);) {
        if (isHead(line))
            part = &parts[familyOf(nameIn(line), program)];
        else if (part != nullptr)
            add(*part, line);
    }
}

std::string megabytes(long kilobytes) {
    constexpr double perMegabyte = 1024;
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << static_cast<double>(kilobytes) / perMegabyte;
    return text.str();
}

}

std::map<std::string, MemoryPart> memoryParts(std::span<const pid_t> pids) {
    std::map<std::string, MemoryPart> parts;
    for (const pid_t pid : pids)
        addProcess(parts, pid);
    return parts;
}

void writeMemoryParts(std::ostream& out, const std::vector<MemoryOf>& programs) {
    std::set<std::string> names;
    for (const auto& program : programs) {
        for (const auto& [name, part] : program.parts)
            names.insert(name);
    }
    out << "| resident / private, MB |";
    for (const auto& program : programs)
        out << ' ' << program.name << " |";
    out << "\n|---|";
    for (std::size_t i = 0; i < programs.size(); ++i)
        out << "---:|";
    out << '\n';
    for (const auto& name : names) {
        out << "| " << name << " |";
        for (const auto& program : programs) {
            const auto part = program.parts.find(name);
            if (part != program.parts.end())
                out << ' ' << megabytes(part->second.resident) << " / "
                    << megabytes(part->second.own);
            out << " |";
        }
        out << '\n';
    }
}

}
