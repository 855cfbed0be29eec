/// What came of the stories under each window manager, kept as a text file for each, and the table
/// that is made of them.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <span>
#include <string>

namespace vireline::desktop {

/// Notes each story as it ends, so that a run that is cut short leaves what it had.
class ResultsFile : public testing::EmptyTestEventListener {
public:
    /// Begins the file with nothing in it.
    explicit ResultsFile(std::filesystem::path file);

    void OnTestStart(const testing::TestInfo& test) override;
    void OnTestPartResult(const testing::TestPartResult& part) override;
    void OnTestEnd(const testing::TestInfo& test) override;

private:
    std::filesystem::path file_;
    /// The first thing that was said of the story that runs, if it failed or was left out.
    std::string reason_;
};

/// Writes the table of these managers in Markdown, with the reasons below it. `folder` has a file
/// of each manager's results under its name, and maybe its version under the name with ".version".
void writeTable(std::ostream& out, const std::filesystem::path& folder,
                std::span<const std::string> managers);

}
