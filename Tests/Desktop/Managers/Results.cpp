#include "Results.hpp"

#include "VirtualDesktop/Session/Home.hpp"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

namespace vireline::desktop {
namespace {

/// A column of the table, and the test suite that it summarises.
struct Column {
    std::string_view suite;
    std::string_view title;
};

constexpr std::array columns{
    Column{"Frames", "on the right monitors, in place"},
    Column{"Stacking", "above normal windows"},
    Column{"FullScreen", "below full-screen windows"},
    Column{"Kinship", "in no list, on every desktop"},
    Column{"Drags", "not dragged or decorated"},
    Column{"Focus", "never focused"},
    Column{"Passing", "clicks beside it pass"},
    Column{"Clicks", "clicks launch, hide, restore, bring forward"},
    Column{"OtherDesktop", "app on another desktop"},
    Column{"Menu", "menu: inside, Escape, elsewhere"},
    Column{"HotPlug", "monitors come, go and change"},
    Column{"Succession", "manager restarted, replaced"},
    Column{"WindowFeatures", "open here, summon, fill"},
    Column{"AutoHide", "auto-hide"},
};

/// One line in a manager's result file.
struct Story {
    std::string suite;
    std::string name;
    /// "passed", "failed" or "left out".
    std::string outcome;
    std::string reason;
};

/// Extracts the message from GoogleTest's text around it.
std::string plainReason(std::string_view text) {
    constexpr std::string_view thrown = "with description \"";
    if (const auto start = text.find(thrown); start != std::string_view::npos) {
        text.remove_prefix(start + thrown.size());
        text = text.substr(0, text.find("\" thrown"));
    }
    for (const std::string_view heading : {"Failed\n", "Skipped\n"}) {
        if (text.starts_with(heading))
            text.remove_prefix(heading.size());
    }
    return std::string{text.substr(0, text.find('\n'))};
}

/// The suite's name without the additions for parameters.
std::string baseSuite(std::string_view suite) {
    const auto slash = suite.find('/');
    return std::string{slash == std::string_view::npos ? suite : suite.substr(slash + 1)};
}

std::vector<Story> readStories(const std::filesystem::path& file) {
    std::vector<Story> stories;
    std::istringstream lines{readFile(file)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields{line};
        Story story;
        std::getline(fields, story.suite, '\t');
        std::getline(fields, story.name, '\t');
        std::getline(fields, story.outcome, '\t');
        std::getline(fields, story.reason);
        stories.push_back(std::move(story));
    }
    return stories;
}

/// Numbers reasons from 1; equal reasons share a number.
class Notes {
public:
    std::size_t numberOf(const std::string& reason) {
        const auto found = std::ranges::find(reasons_, reason);
        if (found != reasons_.end())
            return static_cast<std::size_t>(found - reasons_.begin()) + 1;
        reasons_.push_back(reason);
        return reasons_.size();
    }
    [[nodiscard]] const std::vector<std::string>& all() const noexcept { return reasons_; }

private:
    std::vector<std::string> reasons_;
};

/// A manager's cell in one column.
std::string cell(const std::vector<Story>& all, std::string_view suite, Notes& notes) {
    std::vector<Story> stories;
    std::ranges::copy_if(all, std::back_inserter(stories),
                         [&](const Story& story) { return story.suite == suite; });
    if (stories.empty())
        return "not reached";
    const auto count = [&](std::string_view outcome) {
        return std::ranges::count(stories, outcome, &Story::outcome);
    };
    const bool fails = count("failed") > 0;
    const bool isLeftOut = std::cmp_equal(count("left out"), stories.size());
    std::string text = fails ? "**no**" : isLeftOut ? "n/a" : "OK";
    std::vector<std::size_t> numbers;
    for (const auto& story : stories) {
        if (story.outcome == "passed")
            continue;
        const auto number = notes.numberOf(story.reason);
        if (std::ranges::find(numbers, number) == numbers.end())
            numbers.push_back(number);
    }
    for (const auto number : numbers)
        text += (number == numbers.front() ? " (" : ", ") + std::to_string(number);
    return numbers.empty() ? text : text + ")";
}

}

ResultsFile::ResultsFile(std::filesystem::path file) : file_(std::move(file)) {
    writeFile(file_, {});
}

void ResultsFile::OnTestStart(const testing::TestInfo& /*test*/) {
    reason_.clear();
}

void ResultsFile::OnTestPartResult(const testing::TestPartResult& part) {
    if (!part.passed() && reason_.empty())
        reason_ = plainReason(part.message());
}

void ResultsFile::OnTestEnd(const testing::TestInfo& test) {
    const auto& result = *test.result();
    const auto* const outcome = result.Failed()    ? "failed"
                                : result.Skipped() ? "left out"
                                                   : "passed";
    std::ofstream{file_, std::ios::app} << baseSuite(test.test_suite_name()) << '\t' << test.name()
                                        << '\t' << outcome << '\t' << reason_ << '\n';
}

void writeTable(std::ostream& out, const std::filesystem::path& folder,
                std::span<const std::string> managers) {
    out << "| |";
    for (const auto& column : columns)
        out << ' ' << column.title << " |";
    out << "\n|---|";
    for (std::size_t i = 0; i < columns.size(); ++i)
        out << "---|";
    out << '\n';
    Notes notes;
    for (const auto& manager : managers) {
        const auto stories = readStories(folder / manager);
        const auto version = readFile(folder / (manager + ".version"));
        out << "| " << manager << (version.empty() ? "" : " " + version) << " |";
        for (const auto& column : columns)
            out << ' ' << cell(stories, column.suite, notes) << " |";
        out << '\n';
    }
    out << '\n';
    for (std::size_t i = 0; i < notes.all().size(); ++i)
        out << i + 1 << ". " << notes.all()[i] << '\n';
}

}
