/// How every Accessibility port lists an app's windows and brings them forward, the fake and the
/// real one alike.
#include "Display/AccessibilityContract.hpp"

namespace vireline {
namespace {

using contract::fails;
using contract::Program;

template <class Desktop>
class OpenWindowsContract : public contract::AccessibilityContract<Desktop> {
protected:
    std::vector<OpenWindow> openWindows(const Program& program) {
        return this->port.openWindows(*this->app(program)).value_or(std::vector<OpenWindow>{});
    }

    /// A program with a window for each title, the last of which is active.
    Program runTitled(const std::vector<std::string>& titles) {
        const Program program = this->run(titles.size());
        for (std::size_t i = 0; i < titles.size(); ++i) {
            this->setTitle(program, i, titles[i]);
            this->activate(program, i);
        }
        return program;
    }

    /// Waits until the program's windows are listed like this, with an asterisk at the active one.
    testing::AssertionResult lists(const Program& program,
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

TYPED_TEST_SUITE(OpenWindowsContract, contract::Desktops, contract::Names);

TYPED_TEST(OpenWindowsContract, ListsTheOpenWindowsWithTheirTitlesMostRecentlyActiveFirst) {
    const Program program = this->runTitled({"first", "second", "third — é"});
    const Program other = this->runTitled({"other"});

    EXPECT_TRUE(this->lists(program, {"third — é", "second", "first"}));
    EXPECT_TRUE(this->lists(other, {"other*"}));
    this->activate(program, 1);
    this->setTitle(program, 0, "first, changed");
    EXPECT_TRUE(this->lists(program, {"second*", "third — é", "first, changed"}));
    EXPECT_TRUE(this->lists(other, {"other"}));
}

TYPED_TEST(OpenWindowsContract, ListsAHiddenWindowUntilItIsClosed) {
    const Program program = this->runTitled({"first", "second"});
    this->activate(program, 0);
    this->hide(program, 1);

    EXPECT_TRUE(this->lists(program, {"first*", "second"}));
    this->close(program, 1);
    EXPECT_TRUE(this->lists(program, {"first*"}));
}

TYPED_TEST(OpenWindowsContract, ListsNoOpenWindowsOfAnAppThatDoesNotRun) {
    this->run(1);

    const auto open = this->port.openWindows(*this->port.application(4711, "absent"));

    ASSERT_TRUE(open) << open.error();
    EXPECT_TRUE(open->empty());
}

TYPED_TEST(OpenWindowsContract, BringsOneWindowForwardAndLeavesTheOthersWhereTheyAre) {
    const Program program = this->runTitled({"first", "second", "third"});
    this->hide(program, 1);
    this->activate(program, 2);
    const auto first = this->openWindows(program).at(2);
    ASSERT_EQ(first.title, "first");

    ASSERT_TRUE(this->port.bringForward(*first.element));

    EXPECT_TRUE(this->lists(program, {"first*", "third", "second"}));
    EXPECT_FALSE(this->isShown(program, 1));
}

TYPED_TEST(OpenWindowsContract, BringsAHiddenWindowForward) {
    const Program program = this->runTitled({"first", "second"});
    this->activate(program, 0);
    this->hide(program, 1);
    const auto hidden = this->openWindows(program).at(1);

    ASSERT_TRUE(this->port.bringForward(*hidden.element));

    EXPECT_TRUE(this->eventually([&] { return this->isShown(program, 1); }));
    EXPECT_TRUE(this->lists(program, {"second*", "first"}));
}

TYPED_TEST(OpenWindowsContract, FailsToBringAClosedWindowForward) {
    const Program program = this->runTitled({"first", "second"});
    const auto closed = this->openWindows(program).at(1);
    this->close(program, 0);
    ASSERT_TRUE(this->lists(program, {"second*"}));

    EXPECT_TRUE(fails(this->port.bringForward(*closed.element)));
    EXPECT_TRUE(this->lists(program, {"second*"}));
}

}
}
