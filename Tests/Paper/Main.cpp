// Runs the tests: like GoogleTest, or in a separate process if a single test's name is requested;
// with --forked all of them, each in a child process, until the first failure.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <vector>

extern "C" {
/// Defined only in builds with a sanitizer or coverage.
[[gnu::weak]] int __lsan_do_recoverable_leak_check();
[[gnu::weak]] int __llvm_profile_write_file();
}

namespace {

/// A test that takes more of the processor loops, however busy the machine is.
constexpr rlim_t mostProcessorSeconds = 30;
/// A test that takes longer is considered hung.
constexpr unsigned longestSeconds = 300;

std::vector<std::string> namesOfTests() {
    std::vector<std::string> names;
    const auto& all = *testing::UnitTest::GetInstance();
    for (int suite = 0; suite < all.total_test_suite_count(); ++suite) {
        const testing::TestSuite& tests = *all.GetTestSuite(suite);
        for (int test = 0; test < tests.total_test_count(); ++test)
            names.push_back(std::string{tests.name()} + '.' + tests.GetTestInfo(test)->name());
    }
    return names;
}

[[noreturn]] void runAlone(const std::string& name) {
    constexpr rlimit most{mostProcessorSeconds, mostProcessorSeconds};
    setrlimit(RLIMIT_CPU, &most);
    alarm(longestSeconds);
    testing::GTEST_FLAG(filter) = name;
    bool isWell = RUN_ALL_TESTS() == 0;
    if (__lsan_do_recoverable_leak_check != nullptr)
        isWell = __lsan_do_recoverable_leak_check() == 0 && isWell;
    // Clang's coverage counts, which `_exit` would not write.
    if (__llvm_profile_write_file != nullptr)
        __llvm_profile_write_file();
    _exit(isWell ? EXIT_SUCCESS : EXIT_FAILURE);
}

/// Runs the named tests first, then all others except those whose names contain a text in
/// `skipped`.
int runForked(std::vector<std::string> first, const std::vector<std::string>& skipped) {
    const std::set<std::string> known{first.begin(), first.end()};
    for (const std::string& name : namesOfTests())
        if (!known.contains(name))
            first.push_back(name);
    for (const std::string& name : first) {
        bool isSkipped = false;
        for (const std::string& text : skipped)
            isSkipped = isSkipped || name.find(text) != std::string::npos;
        if (isSkipped)
            continue;
        const pid_t child = fork();
        if (child == 0)
            runAlone(name);
        int status = 0;
        waitpid(child, &status, 0);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != EXIT_SUCCESS) {
            std::printf("FAILED %s\n", name.c_str());
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}

}

int main(int count, char** words) {
    testing::InitGoogleTest(&count, words);
    if (count < 2 || std::strcmp(words[1], "--forked") != 0)
        return RUN_ALL_TESTS();
    std::vector<std::string> first;
    std::vector<std::string> skipped;
    for (int index = 2; index < count; ++index) {
        if (*words[index] == '-')
            skipped.emplace_back(words[index] + 1);
        else
            first.emplace_back(words[index]);
    }
    return runForked(std::move(first), skipped);
}
