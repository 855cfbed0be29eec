// The program's reaction to exceptions raised by the system: each selector that it sends to a
// system class raises every time, in a separate process.
#include "ProgramTest.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

int vireline_main();

namespace vireline {
namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;
/// What is sent for the first time in each part of the day, launch and end included.
using Firsts = std::vector<Names>;

/// The selectors without which no object can be created.
const Names& indispensable() {
    static const Names names{"alloc", "init"};
    return names;
}

/// Seconds. A day is lived some 200 times, and every frame of it costs.
constexpr double moment = 0.05;

NSPoint centre(const char* tile) {
    return centreOf(tileNamed(dockOn(2), tile));
}

void drop(const std::string& path, const char* tile) {
    paper::beginFileDrag({paper::home() + path}, NSDragOperationGeneric);
    paper::movePointer({2400, 500});
    paper::movePointer(centre("Mail"));
    paper::movePointer(centre(tile));
    static_cast<void>(paper::dropFiles());
    paper::advance(moment);
}

void clickTiles() {
    const NSPoint mail = centre("Mail");
    paper::click(mail);
    paper::answerMenus([](NSMenu* menu) { return paper::itemTitled(menu, "Open"); });
    paper::click(mail, true);
    paper::advance(moment);
    paper::display();
    paper::movePointer({2400, 500});
    static_cast<void>([dockOn(2).contentView accessibilityHitTest:mail]);
    const id tile = tileNamed(dockOn(2), "Mail");
    if ([tile isAccessibilitySelectorAllowed:@selector(accessibilityPerformPress)])
        [tile accessibilityPerformPress];
}

void dropFiles() {
    drop("/letter.txt", "Trash");
    drop("/Applications/Paint.app", "Mail");
    // A drag that is cancelled.
    paper::beginFileDrag({paper::home() + "/letter.txt"}, NSDragOperationCopy);
    paper::movePointer(centre("Mail"));
    paper::movePointer({2400, 500});
    paper::cancelFileDrag();
}

void dragTile() {
    const NSPoint from = centre("Notes");
    for (const bool isCancelled : {true, false}) {
        paper::movePointer(from);
        paper::press();
        for (const double way : {60, 120}) {
            paper::movePointer({from.x + way, from.y});
            paper::advance(moment);
        }
        paper::setEscapeDown(isCancelled);
        paper::advance(moment);
        paper::setEscapeDown(false);
        paper::release();
    }
    paper::movePointer({2400, 500});
    paper::advance(moment);
}

void unplug() {
    auto displays = threeDisplays();
    displays.pop_back();
    paper::plug(displays);
    // The docks follow half a second later.
    paper::advance(0.5 + moment);
}

void changeSettings() {
    // It gets the focus back behind the settings.
    paper::launch({"com.example.Chess", "Chess", 510, paper::home() + "/Chess.app"}).active = YES;
    static_cast<void>(paper::chooseStatusItem("Settings…"));
    NSWindow* const settings = paper::windowTitled("Vireline Settings");
    switchOn(controlNamed(settings, "Automatically hide and show the dock"), true);
    push(controlNamed(settings, "Mirror Apple's Dock"));
    if (NSSlider* const size = controlNamed(settings, "Icon size"); size != nil)
        paper::dragSlider(size, 51.7);
    static_cast<void>(paper::chooseStatusItem("Launch at Login"));
    paper::advance(moment);
    [settings close];
    paper::drain();
}

void takeTheTour() {
    static_cast<void>(paper::chooseStatusItem("Welcome Tour…"));
    for (const char* const button :
         {"Continue", "Back", "Continue", "Continue", "Start using Vireline"}) {
        push(controlNamed(paper::windowTitled("Welcome to Vireline"), button));
        paper::advance(moment);
    }
}

void quit() {
    static_cast<void>(paper::chooseStatusItem("Quit Vireline"));
}

/// Everything that a user does with docks, windows and the status item, part by part.
constexpr std::array day{clickTiles,     dropFiles,   dragTile, unplug,
                         changeSettings, takeTheTour, quit};

class Exceptions : public ProgramTest {
protected:
    Exceptions() {
        pinThreeApps();
        static_cast<void>(makeApp("Paint", 0));
        layOut();
    }

    /// What the program sends to classes of the system's in that day.
    [[nodiscard]] Firsts sent() const {
        Firsts firsts(1);
        Names all;
        const auto trace = [&](std::string_view name, std::string_view selector) {
            if (name.starts_with("NS") && !selector.starts_with(".") &&
                all.emplace(selector).second)
                firsts.back().emplace(selector);
        };
        const auto life = [&] {
            paper::rt::traceMessages(trace);
            live([&](std::size_t) { firsts.emplace_back(); });
            for (std::size_t part = 0; part < firsts.size(); ++part)
                write("sent." + std::to_string(part), firsts[part]);
        };
        EXPECT_TRUE(inAProcess(life));
        EXPECT_EQ(lines("escaped"), Names{});
        Firsts told;
        while (fs::exists(home() + "/sent." + std::to_string(told.size())))
            told.push_back(lines("sent." + std::to_string(told.size())));
        layOut();
        return told;
    }

    /// Lives that day once for each selector with every such message raising. What comes before the
    /// first one is the same for all, and lived once: processes branch off where they differ.
    void raiseEach(const Firsts& firsts) const {
        const auto life = [&] {
            bool isBranch = false;
            const auto branch = [&](std::size_t part) {
                for (const std::string& selector : firsts.at(part)) {
                    if (isBranch)
                        return;
                    layOut();
                    isBranch = !isTried(selector);
                }
                if (!isBranch)
                    layOut();
            };
            branch(0);
            live([&](std::size_t part) {
                if (!isBranch)
                    branch(part);
            });
        };
        EXPECT_TRUE(inAProcess(life));
    }

    /// What ended the program, and the exceptions that went out of it into the system's code.
    [[nodiscard]] Names fatal() const { return lines("fatal"); }
    [[nodiscard]] std::map<std::string, Names> escaped(const Firsts& firsts) const {
        std::map<std::string, Names> all;
        for (const Names& names : firsts)
            for (const std::string& selector : names)
                if (const Names left = lines("escaped " + selector); !left.empty())
                    all.emplace(selector, left);
        return all;
    }

private:
    /// Files and settings as at the start of the day.
    void layOut() const {
        writePreferences(R"({"onboardingCompleted": true})");
        fs::remove_all(home() + "/.Trash");
        std::ofstream{home() + "/letter.txt"} << "Dear";
    }

    /// From launch to end, and writes down what escaped. Says before each part which one it is.
    void live(const std::function<void(std::size_t)>& begins) const {
        paper::setScript([&] {
            for (std::size_t part = 0; part < day.size(); ++part) {
                begins(part + 1);
                paper::guarded("the test", day.at(part));
            }
            begins(day.size() + 1);
        });
        @autoreleasepool {
            vireline_main();
        }
        const auto& exceptions = paper::escapedExceptions();
        write("escaped" + suffix_, {exceptions.begin(), exceptions.end()});
    }

    /// Forks: false in the child, which throws the exception and runs the rest of the day; true in
    /// the parent.
    bool isTried(const std::string& selector) const {
        const pid_t child = ::fork();
        if (child == 0) {
            suffix_ = " " + selector;
            paper::rt::makeRaise(selector);
            return false;
        }
        if (!hasEndedWell(child))
            std::ofstream{home() + "/fatal", std::ios::app} << selector << '\n';
        return true;
    }

    template <class Life>
    [[nodiscard]] static bool inAProcess(Life life) {
        const pid_t child = ::fork();
        if (child != 0)
            return hasEndedWell(child);
        const int nothing = ::open("/dev/null", O_WRONLY);
        ::dup2(nothing, STDOUT_FILENO);
        ::dup2(nothing, STDERR_FILENO);
        try {
            life();
            ::_exit(0);
        } catch (...) {
            ::_exit(1);
        }
    }

    static bool hasEndedWell(pid_t child) {
        int status = -1;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    void write(const std::string& name, const Names& all) const {
        std::ofstream out{home() + "/" + name};
        for (const auto& line : all)
            out << line << '\n';
    }

    [[nodiscard]] Names lines(const std::string& name) const {
        Names all;
        std::ifstream in{home() + "/" + name};
        for (std::string line; std::getline(in, line);)
            all.insert(line);
        return all;
    }

    /// The end of the name of the file that a process writes.
    mutable std::string suffix_;
};

TEST_F(Exceptions, EndTheProgramOnlyWhereThereIsNothingWithoutTheCall) {
    const Firsts firsts = sent();
    ASSERT_EQ(firsts.size(), day.size() + 2);
    std::size_t count = 0;
    for (const Names& names : firsts)
        count += names.size();
    EXPECT_GT(count, 190U);
    raiseEach(firsts);
    EXPECT_EQ(fatal(), indispensable());
    EXPECT_EQ(escaped(firsts), (std::map<std::string, Names>{}));
}

}
}
