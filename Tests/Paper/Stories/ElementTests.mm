// All possible answers of other programs when the program queries and moves their windows.
#include "ProgramTest.hpp"

#include <tuple>

namespace vireline {
namespace {

// Documented in AXError.h.
constexpr auto failure = static_cast<AXError>(-25200);
constexpr auto invalidElement = static_cast<AXError>(-25202);
constexpr auto cannotComplete = static_cast<AXError>(-25204);
constexpr auto unsupported = static_cast<AXError>(-25205);
constexpr auto disabled = static_cast<AXError>(-25211);
constexpr auto noValue = static_cast<AXError>(-25212);

class ForeignElements : public ProgramTest {
protected:
    ForeignElements() {
        paper::setTrusted(true);
        pinThreeApps();
        writePreferences(
            R"({"onboardingCompleted": true, "summonOnClick": true, "fillOnDoubleClick": true})");
        mail_ = makeApp("Mail", 502);
    }

    /// A double click, which first summons and then fills; followed by enough time for all retries.
    void useMail(const std::function<void(paper::ForeignApp&)>& prepare) {
        runProgram([&] {
            paper::launch(mail_);
            paper::ForeignApp& app = paper::foreignApps()[502];
            app.windows = {{.position = {100, 100}, .size = {400, 300}}};
            prepare(app);
            const NSPoint at = centreOf(tileNamed(dockOn(2), "Mail"));
            paper::click(at);
            paper::click(at);
            paper::advance(30);
            // No further calls are made.
            const int questions = app.questions;
            paper::advance(30);
            EXPECT_EQ(app.questions, questions);
            wasMoved_ = app.windows[0].position.x >= 1440;
            wasResized_ = app.windows[0].size.width > 1800;
        });
    }

    [[nodiscard]] bool wasMoved() const { return wasMoved_; }
    [[nodiscard]] bool wasResized() const { return wasResized_; }

private:
    paper::App mail_;
    bool wasMoved_ = false;
    bool wasResized_ = false;
};

class RefusedCalls : public ForeignElements,
                     public testing::WithParamInterface<std::tuple<const char*, AXError>> {};

TEST_P(RefusedCalls, LeaveTheDocksAlone) {
    const auto [call, error] = GetParam();
    const std::string name = call;
    useMail([&](paper::ForeignApp& app) { app.errors[name] = error; });
    // Without a main window the first window is used; filling does not read the frame.
    EXPECT_EQ(wasMoved(), name != "set AXPosition");
    EXPECT_EQ(wasResized(), name != "set AXSize");
}

INSTANTIATE_TEST_SUITE_P(Each, RefusedCalls,
                         testing::Combine(testing::Values("AXMainWindow", "AXWindows", "AXPosition",
                                                          "AXSize", "set AXPosition", "set AXSize"),
                                          testing::Values(failure, invalidElement, cannotComplete,
                                                          unsupported, disabled, noValue)));

class NonsensicalAnswers : public ForeignElements,
                           public testing::WithParamInterface<const char*> {};

TEST_P(NonsensicalAnswers, LeaveTheDocksAlone) {
    useMail([&](paper::ForeignApp& app) { app.nonsense = {GetParam()}; });
    EXPECT_TRUE(wasResized());
}

INSTANTIATE_TEST_SUITE_P(Each, NonsensicalAnswers,
                         testing::Values("AXMainWindow", "AXPosition", "AXSize"));

TEST_F(ForeignElements, MayAllBeRefused) {
    useMail([](paper::ForeignApp& app) {
        app.errors = {{"AXMainWindow", noValue}, {"AXWindows", noValue}};
    });
    EXPECT_FALSE(wasMoved());
}

TEST_F(ForeignElements, MayBeNonsenseAltogether) {
    useMail([](paper::ForeignApp& app) { app.nonsense = {"AXMainWindow", "AXWindows"}; });
    EXPECT_FALSE(wasMoved());
}

TEST_F(ForeignElements, MayAllHang) {
    useMail([](paper::ForeignApp& app) { app.isHung = true; });
    EXPECT_FALSE(wasMoved());
}

TEST_F(ForeignElements, AreLeftAloneWithoutThePermission) {
    paper::setTrusted(false);
    useMail([](paper::ForeignApp&) {});
    EXPECT_FALSE(wasMoved());
}

}
}
