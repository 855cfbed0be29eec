/// Drags from another program over a dock, message by message.
#include "Connection/SelectionTransfer.hpp"
#include "Display/WindowTest.hpp"
#include "Support/LoggedLines.hpp"
#include "VirtualDesktop/DragSource.hpp"

#include <memory>

namespace vireline {
namespace {

using desktop::DragSource;
using test::EventLog;
using Status = DragSource::Status;
using Words = std::vector<std::string>;

class XdndTargetTest : public test::WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        dock = showDock("main", events);
        source->contents = {{"text/uri-list", "file:///a\r\nfile:///b\r\n"}};
    }
    void TearDown() override {
        source.reset();
        dock.reset();
        WindowTest::TearDown();
    }

    /// Processes both programs' events until `condition` holds.
    bool happens(const std::function<bool()>& condition) {
        return eventually([&] {
            if (source)
                source->work();
            return condition();
        });
    }
    bool isTold(std::string_view word) {
        return happens([&] { return events.has(word); });
    }
    bool isAnswered(std::size_t times = 1) {
        return happens([&] { return source->statuses.size() >= times; });
    }

    void enter() { source->enter(windowOf("main")); }
    void moveTo(Point view, std::string_view action = "XdndActionCopy") {
        source->move(pixelAt("main", view), action);
    }

    /// The log lines about drags.
    [[nodiscard]] Words refusals() const {
        Words lines = log.messages();
        std::erase_if(lines,
                      [](const std::string& line) { return !line.starts_with("drag refused"); });
        return lines;
    }

    test::LoggedLines log;
    EventLog events;
    std::unique_ptr<PanelWindow> dock;
    std::unique_ptr<DragSource> source = std::make_unique<DragSource>(desk().display());
};

TEST_F(XdndTargetTest, SaysThatItTakesDrags) {
    EXPECT_EQ(client().items(windowOf("main"), "XdndAware"), (std::vector<std::uint32_t>{5}));
}

TEST_F(XdndTargetTest, TellsWhatIsDraggedAndWhereInTheViewsPoints) {
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());
    moveTo({120, 60});
    EXPECT_TRUE(isAnswered(2));

    EXPECT_EQ(events.words,
              (Words{"drag in file:///a file:///b", "drag at 100,40", "drag at 120,60"}));
    EXPECT_EQ(source->statuses.back(), (Status{true, "XdndActionCopy"}));
    EXPECT_EQ(source->requests, 1);
}

TEST_F(XdndTargetTest, TellsThePointInPointsOfADenseDisplayToo) {
    EventLog denseEvents;
    const auto dense = showDock("dense", denseEvents);
    source->enter(windowOf("dense"));
    source->move(pixelAt("dense", {100, 40}));

    EXPECT_TRUE(happens([&] { return denseEvents.has("drag at 100,40"); }));
}

TEST_F(XdndTargetTest, RefusesWhatTheDockRefuses) {
    events.takesDrops = false;
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());

    EXPECT_EQ(source->statuses, std::vector{Status{}});
}

TEST_F(XdndTargetTest, ADropEndsTheDrag) {
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());
    source->drop();
    EXPECT_TRUE(happens([&] { return source->finished.has_value(); }));

    EXPECT_EQ(events.words.back(), "dropped 100,40");
    EXPECT_EQ(source->finished, (Status{true, "XdndActionCopy"}));
    EXPECT_FALSE(events.has("drag out"));
}

TEST_F(XdndTargetTest, ALeaveEndsTheDrag) {
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());
    source->leave();

    EXPECT_TRUE(isTold("drag out"));
    source->drop();
    settle();
    EXPECT_FALSE(events.has("dropped 100,40"));
}

TEST_F(XdndTargetTest, AnswersOnceTheContentHasCome) {
    source->answer = DragSource::Answer::nothing;
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(happens([&] { return source->requests == 1; }));
    moveTo({110, 40});
    settle();
    source->work();
    EXPECT_TRUE(source->statuses.empty());
    EXPECT_EQ(events.words, Words{});

    source->leave();
    source->answer = DragSource::Answer::content;
    enter();
    moveTo({120, 40});
    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(events.words.back(), "drag at 120,40");
}

TEST_F(XdndTargetTest, TakesContentPieceByPiece) {
    std::string list;
    std::string expected = "drag in";
    for (int i = 0; i < 400; ++i) {
        list += "file:///folder/" + std::to_string(i) + "\r\n";
        expected += " file:///folder/" + std::to_string(i);
    }
    source->contents["text/uri-list"] = list;
    source->answer = DragSource::Answer::inPieces;
    enter();
    moveTo({100, 40});

    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(events.words.front(), expected);
}

TEST_F(XdndTargetTest, TakesPlainTextFromProgramsThatSendNothingElse) {
    source->contents = {{"text/plain", "/home/ada/a b\n"}};
    enter();
    moveTo({100, 40});

    EXPECT_TRUE(isTold("drag in file:///home/ada/a%20b"));
}

TEST_F(XdndTargetTest, FindsAFormBehindTheThirdOneOffered) {
    source->contents = {{"application/one", "1"},
                        {"application/two", "2"},
                        {"application/three", "3"},
                        {"text/uri-list", "file:///a"}};
    enter();
    moveTo({100, 40});

    EXPECT_TRUE(isTold("drag in file:///a"));
}

TEST_F(XdndTargetTest, RefusesWhatHasNoFormThatItKnows) {
    source->contents = {{"image/png", "?"}};
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());

    EXPECT_EQ(source->statuses, std::vector{Status{}});
    EXPECT_EQ(source->requests, 0);
    EXPECT_EQ(events.words, Words{});
}

TEST_F(XdndTargetTest, RefusesAProtocolThatItDoesNotSpeak) {
    for (const std::uint32_t version : {0U, 2U, 6U}) {
        source->enter(windowOf("main"), version);
        moveTo({100, 40});
        settle();
        source->work();
    }
    EXPECT_TRUE(source->statuses.empty());
}

TEST_F(XdndTargetTest, LogsContentThatCannotBeHadOnceAndRefusesIt) {
    for (const auto answer :
         {DragSource::Answer::refusal, DragSource::Answer::numbers, DragSource::Answer::vanished}) {
        source->statuses.clear();
        source->answer = answer;
        enter();
        moveTo({100, 40});
        EXPECT_TRUE(isAnswered());
        moveTo({110, 40});
        EXPECT_TRUE(isAnswered(2));
        EXPECT_EQ(source->statuses, (std::vector{Status{}, Status{}}));
        source->leave();
    }
    settle();
    EXPECT_EQ(refusals(), (Words{"drag refused: its owner refuses", "drag refused: it is no text",
                                 "drag refused: it never came"}));
    EXPECT_EQ(events.words, Words{});
}

TEST_F(XdndTargetTest, RefusesContentWithoutEnd) {
    source->contents["text/uri-list"] = std::string(x11::SelectionTransfer::maximumBytes + 1, 'x');
    source->answer = DragSource::Answer::inPieces;
    source->pieceBytes = 1U << 20U;
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());

    EXPECT_EQ(refusals(), Words{"drag refused: it is too long"});
    EXPECT_EQ(events.words, Words{});
}

TEST_F(XdndTargetTest, ADropBeforeTheContentHasComeWaitsForIt) {
    enter();
    moveTo({100, 40});
    source->drop();
    EXPECT_TRUE(happens([&] { return source->finished.has_value(); }));

    EXPECT_EQ(events.words, (Words{"drag in file:///a file:///b", "dropped 100,40"}));
    EXPECT_EQ(source->finished, (Status{true, "XdndActionCopy"}));
}

TEST_F(XdndTargetTest, ADropThatIsRefusedIsFinishedAsSuch) {
    source->contents = {{"image/png", "?"}};
    enter();
    moveTo({100, 40});
    source->drop();
    EXPECT_TRUE(happens([&] { return source->finished.has_value(); }));

    EXPECT_EQ(source->finished, Status{});
}

TEST_F(XdndTargetTest, ASourceThatDiesEndsItsDrag) {
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());

    source.reset();

    EXPECT_TRUE(isTold("drag out"));
}

TEST_F(XdndTargetTest, ASourceThatDiedBeforeItsMessagesWereReadDragsNothing) {
    enter();
    moveTo({100, 40});
    source.reset();
    settle();

    source = std::make_unique<DragSource>(desk().display());
    source->contents = {{"text/uri-list", "file:///c"}};
    enter();
    moveTo({110, 40});
    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(events.words, (Words{"drag in file:///c", "drag at 110,40"}));
}

TEST_F(XdndTargetTest, ADragThatWasNeverEndedIsReplacedByTheNext) {
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());
    DragSource other{desk().display()};
    other.contents = {{"text/uri-list", "file:///c"}};
    other.enter(windowOf("main"));
    other.move(pixelAt("main", {110, 40}));
    EXPECT_TRUE(happens([&] {
        other.work();
        return !other.statuses.empty();
    }));

    EXPECT_EQ(events.words, (Words{"drag in file:///a file:///b", "drag at 100,40", "drag out",
                                   "drag in file:///c", "drag at 110,40"}));
}

TEST_F(XdndTargetTest, MessagesFromAnybodyElseDoNotCount) {
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());
    const std::size_t before = events.words.size();
    DragSource other{desk().display()};
    other.leave();
    other.enter(windowOf("left"));
    settle();

    EXPECT_EQ(events.words.size(), before);
}

TEST_F(XdndTargetTest, TheWindowsEndIsTheDragsEnd) {
    enter();
    moveTo({100, 40});
    EXPECT_TRUE(isAnswered());

    dock->orderOut();

    EXPECT_EQ(events.words.back(), "drag out");
}

TEST_F(XdndTargetTest, GivesUpASelectionWhoseOwnerKeepsSilent) {
    using namespace std::chrono_literals;
    source->answer = DragSource::Answer::nothing;
    std::optional<Result<std::string>> outcome;
    const x11::SelectionTransfer transfer{
        connection,
        {.requestor = windowOf("main"),
         .selection = connection.atom("XdndSelection"),
         .target = connection.atom("text/uri-list"),
         .property = connection.atom("_VIRELINE_TEST")},
        [&](Result<std::string> content) { outcome = std::move(content); },
        50ms};
    EXPECT_TRUE(happens([&] { return outcome.has_value(); }));

    EXPECT_EQ(source->requests, 1);
    EXPECT_EQ(outcome->error().description, "its owner does not answer");
}

struct ActionCase {
    std::string asked;
    std::vector<std::string> offered;
    std::string answered;

    friend std::ostream& operator<<(std::ostream& out, const ActionCase& action) {
        out << action.asked << " of";
        for (const std::string& offered : action.offered)
            out << ' ' << offered;
        return out << ": " << action.answered;
    }
};

class XdndActionTest : public XdndTargetTest, public testing::WithParamInterface<ActionCase> {};

TEST_P(XdndActionTest, CopiesWhereverItMay) {
    source->actions = GetParam().offered;
    enter();
    moveTo({100, 40}, GetParam().asked);
    EXPECT_TRUE(isAnswered());
    source->drop();
    EXPECT_TRUE(happens([&] { return source->finished.has_value(); }));

    EXPECT_EQ(source->statuses.back(), (Status{true, GetParam().answered}));
    EXPECT_EQ(source->finished, (Status{true, GetParam().answered}));
}

INSTANTIATE_TEST_SUITE_P(
    Actions, XdndActionTest,
    testing::Values(
        ActionCase{"XdndActionCopy", {}, "XdndActionCopy"},
        ActionCase{"XdndActionMove", {"XdndActionCopy", "XdndActionMove"}, "XdndActionCopy"},
        ActionCase{"XdndActionMove", {}, "XdndActionMove"},
        ActionCase{"XdndActionAsk", {"XdndActionMove", "XdndActionCopy"}, "XdndActionCopy"},
        ActionCase{"XdndActionAsk", {"XdndActionMove", "XdndActionLink"}, "XdndActionMove"},
        ActionCase{"XdndActionAsk", {"XdndActionLink"}, "XdndActionAsk"},
        ActionCase{"XdndActionAsk", {}, "XdndActionCopy"},
        ActionCase{"XdndActionLink", {}, "XdndActionCopy"}));

}
}
