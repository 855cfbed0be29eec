/// Compares the program with other docks and panels, each in turn on the same virtual desktop, with
/// the same displays and launchers, several times.
///
///   DesktopPeers [--wayland] [--runs N] [--measures LIST] [--report FILE] [--pictures FOLDER]
///   [NAME...]
#include "Peers/Figures.hpp"
#include "Peers/MemoryParts.hpp"
#include "Peers/Subject.hpp"
#include "Peers/Targets.hpp"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace vireline::desktop {
namespace {

using namespace std::chrono_literals;

struct Options {
    int runs = 5;
    std::set<std::string> measures{"memory", "rest", "pointer", "windows", "displays", "growth"};
    std::filesystem::path report;
    std::filesystem::path pictures;
    /// Whether to compare under sway instead of X11.
    bool wayland = false;
    /// Empty means all.
    std::set<std::string> names;
};

std::set<std::string> split(const std::string& list) {
    std::set<std::string> parts;
    std::istringstream in{list};
    for (std::string part; std::getline(in, part, ',');)
        parts.insert(part);
    return parts;
}

Options parse(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto next = [&]() -> const std::string& {
            if (i + 1 == arguments.size())
                throw std::runtime_error{arguments[i] + " wants a value"};
            return arguments[++i];
        };
        if (arguments[i] == "--wayland")
            options.wayland = true;
        else if (arguments[i] == "--runs")
            options.runs = std::max(1, std::atoi(next().c_str()));
        else if (arguments[i] == "--measures")
            options.measures = split(next());
        else if (arguments[i] == "--report")
            options.report = next();
        else if (arguments[i] == "--pictures")
            options.pictures = next();
        else
            options.names.insert(arguments[i]);
    }
    // How it follows displays and grows is measured on X11.
    if (options.wayland)
        std::erase_if(options.measures, [](const std::string& measure) {
            return measure == "displays" || measure == "growth";
        });
    return options;
}

/// The version of the Debian package, or of this project for the program itself.
std::string versionOf(const Peer& peer) {
    if (peer.package.empty())
        return PROJECT_VERSION;
    const test::TemporaryFolder folder;
    const auto answer = folder.path() / "version";
    ChildProcess query{Command{"dpkg-query",
                               {"--show", "--showformat=${Version}", peer.package},
                               {{"PATH", "/usr/bin:/bin"}},
                               answer,
                               {},
                               {}}};
    static_cast<void>(query.waitForExit());
    return readFile(answer);
}

class Comparison {
public:
    explicit Comparison(Options options) : options_(std::move(options)) {}

    void run() {
        for (const Peer& peer : options_.wayland ? waylandPeers() : xPeers()) {
            // A start that fails may be a random failure, so it is retried.
            if (options_.names.empty() || options_.names.contains(peer.name))
                static_cast<void>(isMeasured(peer) || isMeasured(peer));
        }
    }

    void write(std::ostream& out) const {
        writeTable(out, columns_);
        if (options_.wayland)
            writeWaylandTargets(out, columns_);
        else
            writeTargets(out, columns_);
        if (!parts_.empty() && !options_.wayland)
            writeMemoryParts(out, parts_);
    }

private:
    static std::vector<Peer> xPeers() {
        auto peers = docks();
        std::ranges::move(panels(), std::back_inserter(peers));
        return peers;
    }

    [[nodiscard]] bool wants(const char* measure) const {
        return options_.measures.contains(measure);
    }

    bool isMeasured(const Peer& peer) {
        try {
            measure(peer);
            return true;
        } catch (const std::exception& error) {
            std::cerr << ' ' << error.what() << '\n';
            return false;
        }
    }

    void measure(const Peer& peer) {
        std::cerr << peer.name << ' ' << std::flush;
        Column column{peer.name, versionOf(peer), {}};
        Subject subject{peer};
        // Fills the system's caches.
        subject.start();
        takePicture(peer, subject);
        subject.stop();
        for (int run = 0; run < options_.runs; ++run) {
            std::cerr << '.' << std::flush;
            measureMemory(subject, column.figures, run + 1 == options_.runs);
            measureCosts(subject, column.figures);
            if (run + 1 == options_.runs && wants("growth"))
                column.figures[Figure::growth] = {subject.growth(launches)};
            subject.stop();
        }
        std::cerr << '\n';
        columns_.push_back(std::move(column));
    }

    void measureMemory(Subject& subject, Figures& figures, bool isLast) {
        const auto started = std::chrono::steady_clock::now();
        figures[Figure::start].push_back(subject.start());
        if (!wants("memory"))
            return;
        std::this_thread::sleep_until(started + 5s);
        const auto memory = subject.memory();
        figures[Figure::residentMemory].push_back(memory.resident);
        figures[Figure::proportionalMemory].push_back(memory.proportional);
        figures[Figure::privateMemory].push_back(memory.own);
        if (isLast) {
            std::erase_if(parts_, [&](const auto& part) { return part.name == subject.name(); });
            parts_.push_back({subject.name(), memoryParts(subject.own())});
        }
    }

    void measureCosts(Subject& subject, Figures& figures) const {
        if (wants("rest")) {
            const auto rest = subject.rest(shareOfRest);
            figures[Figure::idleTime].push_back(rest.processorTime);
            figures[Figure::idleWakeUps].push_back(rest.wakeUps);
        }
        if (wants("pointer")) {
            const auto cost = subject.sweep(pointerSteps);
            figures[Figure::pointerTime].push_back(cost.own);
            figures[Figure::pointerServerTime].push_back(cost.server);
        }
        if (wants("windows")) {
            figures[Figure::windowsTime].push_back(subject.openWindows(windows).own);
        }
        if (wants("displays"))
            figures[Figure::displaysTime].push_back(subject.changeDisplays(shareOfChanges).own);
    }

    /// For checking by eye that it shows what it should, at rest and under the pointer.
    void takePicture(const Peer& peer, const Subject& subject) const {
        if (options_.pictures.empty())
            return;
        std::filesystem::create_directories(options_.pictures);
        subject.picture().writePNG(options_.pictures / (peer.name + ".png"));
    }

    static constexpr int pointerSteps = 1000;
    static constexpr int windows = 100;
    static constexpr int launches = 1000;
    /// One fifth: each of the five runs does a part of the 20 seconds and of the 20 changes.
    static constexpr std::chrono::seconds shareOfRest{4};
    static constexpr int shareOfChanges = 4;

    Options options_;
    std::vector<Column> columns_;
    std::vector<MemoryOf> parts_;
};

void compare(const Options& options) {
    Comparison comparison{options};
    comparison.run();
    comparison.write(std::cout);
    if (!options.report.empty()) {
        std::ofstream report{options.report};
        comparison.write(report);
    }
}

}
}

int main(int count, char** arguments) {
    try {
        vireline::desktop::compare(vireline::desktop::parse({arguments + 1, arguments + count}));
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "peers: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
