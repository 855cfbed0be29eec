/// The results of the scenarios under each window manager, kept in one text file per manager, and
/// the table made from them.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <span>
#include <string>

namespace vireline::desktop {

/// Records each scenario as it ends, so that an interrupted run keeps its earlier results.
class ResultsFile : public testing::EmptyTestEventListener {
public:
    /// Truncates the file.
    explicit ResultsFile(std::filesystem::path file);

    void OnTestStart(const testing::TestInfo& test) override;
    void OnTestPartResult(const testing::TestPartResult& part) override;
    void OnTestEnd(const testing::TestInfo& test) override;

private:
    std::filesystem::path file_;
    /// The first message about the current scenario, if it failed or was skipped.
    std::string reason_;
};

/// Writes the table of these managers in Markdown, followed by the reasons. `folder` contains each
/// manager's results in a file with its name, and optionally its version in a file with ".version"
/// appended.
void writeTable(std::ostream& out, const std::filesystem::path& folder,
                std::span<const std::string> managers);

}
