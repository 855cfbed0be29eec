/// How every `Accessibility` port lists an app's windows and brings them forward. A desktop that is
/// tested has an `accessibility()`, runs programs, and arranges their windows:
///
///     Program run(count);                      with that many windows
///     setTitle(program, window, title);
///     activate(program, window);
///     hide(program, window);                   minimised, or whatever the desktop has for that
///     bool isShown(program, window);
///     close(program, window);                  the later windows move up
///     bool eventually(condition);
#pragma once

#include "Contract/Programs.hpp"
#include "Platform/Applications/Accessibility.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace vireline {

template <class Desktop>
class OpenWindowsContract : public Desktop {
protected:
    std::vector<OpenWindow> openWindows(const contract::Program& program) {
        Accessibility& port = this->accessibility();
        return port.openWindows(*port.application(program.process, program.bundleID))
            .value_or(std::vector<OpenWindow>{});
    }

    /// A program with a window for each title, the last of which is active.
    contract::Program runTitled(const std::vector<std::string>& titles) {
        const contract::Program program = this->run(titles.size());
        for (std::size_t i = 0; i < titles.size(); ++i) {
            this->setTitle(program, i, titles[i]);
            this->activate(program, i);
        }
        return program;
    }

    /// Waits until the program's windows are listed like this, with an asterisk at the active one.
    testing::AssertionResult lists(const contract::Program& program,
                                   const std::vector<std::string>& expected) {
        std::vector<std::string> listed;
        if (this->eventually([&] {
                listed.clear();
                for (const OpenWindow& window : openWindows(program))
                    listed.push_back(window.title + (window.isActive ? "*" : ""));
                return listed == expected;
            }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "the list is " << testing::PrintToString(listed);
    }
};

TYPED_TEST_SUITE_P(OpenWindowsContract);

TYPED_TEST_P(OpenWindowsContract, ListsTheOpenWindowsWithTheirTitlesMostRecentlyActiveFirst) {
    const contract::Program program = this->runTitled({"first", "second", "third — é"});
    const contract::Program other = this->runTitled({"other"});

    EXPECT_TRUE(this->lists(program, {"third — é", "second", "first"}));
    EXPECT_TRUE(this->lists(other, {"other*"}));
    this->activate(program, 1);
    this->setTitle(program, 0, "first, changed");
    EXPECT_TRUE(this->lists(program, {"second*", "third — é", "first, changed"}));
    EXPECT_TRUE(this->lists(other, {"other"}));
}

TYPED_TEST_P(OpenWindowsContract, ListsAHiddenWindowUntilItIsClosed) {
    const contract::Program program = this->runTitled({"first", "second"});
    this->activate(program, 0);
    this->hide(program, 1);

    EXPECT_TRUE(this->lists(program, {"first*", "second"}));
    this->close(program, 1);
    EXPECT_TRUE(this->lists(program, {"first*"}));
}

TYPED_TEST_P(OpenWindowsContract, ListsNoOpenWindowsOfAnAppThatDoesNotRun) {
    this->run(1);

    Accessibility& port = this->accessibility();
    const auto open = port.openWindows(*port.application(4711, "absent"));

    ASSERT_TRUE(open) << open.error();
    EXPECT_TRUE(open->empty());
}

TYPED_TEST_P(OpenWindowsContract, BringsOneWindowForwardAndLeavesTheOthersWhereTheyAre) {
    const contract::Program program = this->runTitled({"first", "second", "third"});
    this->hide(program, 1);
    this->activate(program, 2);
    const auto first = this->openWindows(program).at(2);
    ASSERT_EQ(first.title, "first");

    ASSERT_TRUE(this->accessibility().bringForward(*first.element));

    EXPECT_TRUE(this->lists(program, {"first*", "third", "second"}));
    EXPECT_FALSE(this->isShown(program, 1));
}

TYPED_TEST_P(OpenWindowsContract, BringsAHiddenWindowForward) {
    const contract::Program program = this->runTitled({"first", "second"});
    this->activate(program, 0);
    this->hide(program, 1);
    const auto hidden = this->openWindows(program).at(1);

    ASSERT_TRUE(this->accessibility().bringForward(*hidden.element));

    EXPECT_TRUE(this->eventually([&] { return this->isShown(program, 1); }));
    EXPECT_TRUE(this->lists(program, {"second*", "first"}));
}

TYPED_TEST_P(OpenWindowsContract, FailsToBringAClosedWindowForward) {
    const contract::Program program = this->runTitled({"first", "second"});
    const auto closed = this->openWindows(program).at(1);
    this->close(program, 0);
    ASSERT_TRUE(this->lists(program, {"second*"}));

    EXPECT_TRUE(contract::fails(this->accessibility().bringForward(*closed.element)));
    EXPECT_TRUE(this->lists(program, {"second*"}));
}

REGISTER_TYPED_TEST_SUITE_P(OpenWindowsContract,
                            ListsTheOpenWindowsWithTheirTitlesMostRecentlyActiveFirst,
                            ListsAHiddenWindowUntilItIsClosed,
                            ListsNoOpenWindowsOfAnAppThatDoesNotRun,
                            BringsOneWindowForwardAndLeavesTheOthersWhereTheyAre,
                            BringsAHiddenWindowForward, FailsToBringAClosedWindowForward);

}
