// The program's reaction to exceptions raised by the system: each selector that it sends to a
// system class raises every time, in a separate process.
#include "ProgramTest.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <map>
#include <optional>
#include <set>

int vireline_main();

namespace vireline {
namespace {

using Selectors = std::set<std::string>;

/// Without these, no objects can be created.
const Selectors& indispensable() {
    static const Selectors names{"alloc", "init"};
    return names;
}

class Exceptions : public ProgramTest {
protected:
    Exceptions() { pinThreeApps(); }

    /// A short scenario with everything that a user does with docks and the status item.
    static void useProgram() {
        NSWindow* const dock = dockOn(2);
        if (const id tile = tileNamed(dock, "Mail"); tile != nil) {
            paper::click(centreOf(tile));
            paper::answerMenus([](NSMenu* menu) { return paper::itemTitled(menu, "Open"); });
            paper::click(centreOf(tile), true);
        }
        paper::advance(0.5);
        paper::display();
        auto displays = threeDisplays();
        displays.pop_back();
        paper::plug(displays);
        paper::advance(1);
        static_cast<void>(paper::chooseStatusItem("Settings…"));
        static_cast<void>(paper::chooseStatusItem("Launch at Login"));
        paper::advance(1);
        static_cast<void>(paper::chooseStatusItem("Quit Vireline"));
    }

    /// The exceptions that escaped from the program into the system's code during a run; nullopt if
    /// an exception ended it.
    using Escaped = std::optional<Selectors>;

    /// Runs in a separate process.
    template <class Prepare, class Finish>
    [[nodiscard]] Escaped run(Prepare prepare, Finish finish) const {
        const std::string file = home() + "/escaped.txt";
        const pid_t child = ::fork();
        if (child == 0) {
            try {
                live(prepare, finish, file);
                ::_exit(0);
            } catch (...) {
                ::_exit(1);
            }
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Escaped{lines(file)} : std::nullopt;
    }

    /// The messages that the program sends to system classes in that scenario.
    [[nodiscard]] Selectors sent() const {
        const std::string file = home() + "/sent.txt";
        Selectors seen;
        const auto trace = [&] {
            paper::rt::traceMessages([&](std::string_view name, std::string_view selector) {
                if (name.starts_with("NS") && !selector.starts_with("."))
                    seen.emplace(selector);
            });
        };
        EXPECT_EQ(run(trace, [&] { write(file, seen); }), Escaped{Selectors{}});
        return lines(file);
    }

private:
    template <class Prepare, class Finish>
    static void live(Prepare prepare, Finish finish, const std::string& file) {
        const int nothing = ::open("/dev/null", O_WRONLY);
        ::dup2(nothing, STDOUT_FILENO);
        ::dup2(nothing, STDERR_FILENO);
        prepare();
        paper::setScript([] { paper::guarded("the test", &useProgram); });
        @autoreleasepool {
            vireline_main();
        }
        finish();
        Selectors escaped;
        for (const std::string& exception : paper::escapedExceptions())
            escaped.insert(exception);
        write(file, escaped);
    }

    static void write(const std::string& file, const Selectors& all) {
        std::ofstream out{file};
        for (const auto& line : all)
            out << line << '\n';
    }

    static Selectors lines(const std::string& file) {
        Selectors all;
        std::ifstream in{file};
        for (std::string line; std::getline(in, line);)
            all.insert(line);
        return all;
    }
};

TEST_F(Exceptions, EndTheProgramOnlyWhereThereIsNothingWithoutTheCall) {
    const Selectors all = sent();
    EXPECT_GT(all.size(), 150U);
    Selectors fatal;
    std::map<std::string, Selectors> escaped;
    for (const auto& selector : all) {
        const Escaped left = run([&] { paper::rt::makeRaise(selector); }, [] {});
        if (!left)
            fatal.insert(selector);
        else if (!left->empty())
            escaped.emplace(selector, *left);
    }
    EXPECT_EQ(fatal, indispensable());
    EXPECT_EQ(escaped, (std::map<std::string, Selectors>{}));
}

}
}
