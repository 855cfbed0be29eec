#include "Storm/Episode.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <numeric>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) && !defined(__APPLE__)
#define VIRELINE_CHECKS_LEAKS
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define VIRELINE_CHECKS_LEAKS
#endif

#ifdef VIRELINE_CHECKS_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

extern "C" {
/// Defined by Clang's coverage runtime.
[[gnu::weak]] int __llvm_profile_write_file();
}

namespace vireline::storm {
namespace {

constexpr int wellDone = 0;
constexpr int foundWrong = 3;

bool leaks() {
#ifdef VIRELINE_CHECKS_LEAKS
    return __lsan_do_recoverable_leak_check() != 0;
#else
    return false;
#endif
}

/// `_exit` does not write the coverage counts.
void writeCounts() {
    if (__llvm_profile_write_file != nullptr)
        __llvm_profile_write_file();
}

void tell(const std::string& text) {
    std::fputs(text.c_str(), stderr);
}

/// Returns what went wrong. Neither the program nor the model may let an exception escape.
std::optional<std::string> outcomeOf(const Episode& episode) try {
    return live(episode, [](const std::string& line) { tell(line + '\n'); });
} catch (const std::exception& error) {
    return std::string{"an exception: "} + error.what();
}

[[noreturn]] void liveAndExit(const Episode& episode, int output) {
    dup2(output, STDERR_FILENO);
    if (std::freopen("/dev/null", "w", stdout) == nullptr)
        std::abort();
    auto wrong = outcomeOf(episode);
    if (!wrong && leaks())
        wrong = "memory is leaked";
    if (wrong)
        tell("WRONG: " + *wrong + '\n');
    writeCounts();
    _exit(wrong ? foundWrong : wellDone);
}

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> buffer{};
    for (;;) {
        const auto count = read(descriptor, buffer.data(), buffer.size());
        if (count > 0)
            text.append(buffer.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return text;
    }
}

/// The rest of the first line that begins with `beginning`; empty if there is none.
std::string lineBehind(const std::string& text, const std::string& beginning) {
    const auto at = text.find(beginning);
    if (at == text.npos)
        return {};
    const auto from = at + beginning.size();
    return text.substr(from, text.find('\n', from) - from);
}

Failure failureOf(const std::string& output, int status) {
    Failure failure;
    std::string wrong = lineBehind(output, "WRONG: ");
    if (wrong.empty())
        wrong = lineBehind(output, "SUMMARY: ");
    if (wrong.empty())
        wrong = lineBehind(output, "broken condition: ");
    if (wrong.empty())
        wrong = "the process ended with status " + std::to_string(status);
    // Digits are masked, because numbers differ between runs.
    for (const char letter : wrong) {
        if (letter >= '0' && letter <= '9')
            failure.kind += '#';
        else
            failure.kind += letter;
        if (failure.kind.size() == 24)
            break;
    }
    failure.message = wrong;
    failure.story = output;
    return failure;
}

}

Episode wholeEpisode(unsigned seed, int steps) {
    Episode episode{seed, std::vector<int>(static_cast<std::size_t>(steps))};
    std::iota(episode.steps.begin(), episode.steps.end(), 1);
    return episode;
}

std::optional<Failure> run(const Episode& episode) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return Failure{"no pipe", "no pipe", {}};
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        liveAndExit(episode, ends[1]);
    }
    close(ends[1]);
    const std::string output = readAll(ends[0]);
    close(ends[0]);
    int status = 0;
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == wellDone)
        return std::nullopt;
    return failureOf(output, status);
}

}
