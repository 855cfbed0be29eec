#include "Wayland/Fakes/FakeDrags.hpp"
#include "Wayland/Input/SeatTest.hpp"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace vireline::wayland {
namespace {

using Formats = std::vector<std::string>;
using Requests = RequestLog::Requests;

/// The first text; empty if there is none.
std::string firstOf(const std::vector<std::string>& texts) {
    return texts.empty() ? std::string{} : texts.front();
}

std::string lastOf(const std::vector<std::string>& texts) {
    return texts.empty() ? std::string{} : texts.back();
}

class DragTest : public SeatTest {
protected:
    DragTest() {
        drags_.contents = {{"text/uri-list", "file:///a\r\nfile:///b\r\n"}, {"text/plain", "/c"}};
        open();
    }

    /// A drag of these formats that enters at 5, 6.
    void begin(const Formats& formats = {"text/uri-list"},
               std::uint32_t actions = FakeDrags::copy) {
        receive([&] {
            drags_.announce(formats, actions);
            drags_.enter(surface_.get(), 5, 6);
        });
        sync();
    }
    /// Waits until the files have been read and the answer has arrived.
    void beginKnown(const Formats& formats = {"text/uri-list"},
                    std::uint32_t actions = FakeDrags::copy) {
        begin(formats, actions);
        EXPECT_TRUE(test::waitUntil([&] { return !input_.isEmpty(); }));
        sync();
    }
    /// The events, and then all requests that answer them.
    [[nodiscard]] Requests answersTo(const std::function<void()>& events) {
        (void)drags_.requests();
        receive(events);
        sync();
        return drags_.requests();
    }
    /// Waits until the client has made this many requests. It makes them from its event loop, once
    /// the files have been read.
    [[nodiscard]] Requests nextRequests(std::size_t count) {
        Requests made;
        (void)test::waitUntil([&] {
            std::ranges::move(drags_.requests(), std::back_inserter(made));
            return made.size() >= count;
        });
        return made;
    }
    /// A pipe brings nothing of use.
    void beginUseless(const std::string& format = "text/uri-list") {
        begin({format});
        EXPECT_EQ(nextRequests(3), (Requests{"receive " + format, "refuse", "set_actions 0 0"}));
    }

    FakeDrags drags_{compositor_};
};

TEST_F(DragTest, AnnouncesItsFilesOnceTheyHaveBeenRead) {
    drags_.delaysAnswers = true;
    begin();
    test::deliverPendingEvents();
    EXPECT_TRUE(input_.isEmpty());
    EXPECT_EQ(drags_.requests(), Requests{"receive text/uri-list"});

    compositor_.run([&] { drags_.answerPipes(); });
    ASSERT_TRUE(test::waitUntil([&] { return !input_.isEmpty(); }));
    EXPECT_EQ(input_.take(), (Happenings{"drag entered file:///a file:///b", "drag moved 5 6"}));

    // The pointer may rest, so there is no further event to wait for before answering.
    EXPECT_EQ(nextRequests(2), (Requests{"accept text/uri-list", "set_actions 1 1"}));
}

TEST_F(DragTest, IsAnnouncedWhereItHasMovedToMeanwhile) {
    drags_.delaysAnswers = true;
    begin();
    EXPECT_EQ(answersTo([&] { drags_.motion(8, 9); }), Requests{}) << "it is not known yet";
    EXPECT_TRUE(input_.isEmpty());

    compositor_.run([&] { drags_.answerPipes(); });
    ASSERT_TRUE(test::waitUntil([&] { return !input_.isEmpty(); }));
    EXPECT_EQ(input_.take(), (Happenings{"drag entered file:///a file:///b", "drag moved 8 9"}));
}

TEST_F(DragTest, IsReadInTheBestFormat) {
    beginKnown({"image/png", "STRING", "text/plain", "text/uri-list", "application/x-other"});

    EXPECT_EQ(firstOf(drags_.requests()), "receive text/uri-list");
    EXPECT_EQ(firstOf(input_.take()), "drag entered file:///a file:///b");
}

TEST_F(DragTest, MayBePlainText) {
    beginKnown({"STRING", "text/plain"});

    EXPECT_EQ(firstOf(drags_.requests()), "receive text/plain");
    EXPECT_EQ(firstOf(input_.take()), "drag entered file:///c");
}

TEST_F(DragTest, IsRefusedAtEachMovementIfNothingIsReadable) {
    const Requests refusal{"refuse", "set_actions 0 0"};
    begin({"image/png"});
    EXPECT_EQ(drags_.requests(), refusal);

    EXPECT_EQ(answersTo([&] { drags_.motion(1, 2); }), refusal);
    EXPECT_EQ(answersTo([&] { drags_.motion(3, 4); }), refusal);
    EXPECT_EQ(answersTo([&] { drags_.leave(); }), Requests{"destroy"});
    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(DragTest, IsRefusedWhereTheDockRefusesIt) {
    beginKnown();
    (void)input_.take();

    input_.canDrop = false;
    EXPECT_EQ(answersTo([&] { drags_.motion(1, 2); }), (Requests{"refuse", "set_actions 0 0"}));
    input_.canDrop = true;
    EXPECT_EQ(answersTo([&] { drags_.motion(3, 4); }),
              (Requests{"accept text/uri-list", "set_actions 1 1"}));
    EXPECT_EQ(input_.take(), (Happenings{"drag moved 1 2", "drag moved 3 4"}));
}

TEST_F(DragTest, CopiesIfItCan) {
    beginKnown({"text/uri-list"}, FakeDrags::copy | FakeDrags::move | FakeDrags::ask);
    EXPECT_EQ(lastOf(drags_.requests()), "set_actions 1 1");
}

TEST_F(DragTest, IsDoneAsItsSourceInsists) {
    beginKnown({"text/uri-list"}, FakeDrags::move);
    EXPECT_EQ(lastOf(drags_.requests()), "set_actions 2 2");
}

TEST_F(DragTest, HasNoActionIfItsSourceAllowsNone) {
    beginKnown({"text/uri-list"}, 0);
    EXPECT_EQ(lastOf(drags_.requests()), "set_actions 0 0");
}

TEST_F(DragTest, IsFinishedWithItsDrop) {
    beginKnown();
    (void)input_.take();

    const Requests answers = answersTo([&] {
        drags_.motion(7, 8);
        drags_.decide(FakeDrags::copy);
        drags_.drop();
        drags_.leave();
    });

    EXPECT_EQ(input_.take(), (Happenings{"drag moved 7 8", "dropped 7 8"}));
    EXPECT_EQ(answers, (Requests{"accept text/uri-list", "set_actions 1 1", "finish", "destroy"}));
}

/// The protocol forbids it.
TEST_F(DragTest, IsNotFinishedWithoutAnAction) {
    beginKnown();
    EXPECT_EQ(answersTo([&] { drags_.drop(); }), Requests{"destroy"});
}

TEST_F(DragTest, IsNotFinishedIfTheDockDoesNotAcceptTheDrop) {
    input_.accepts = false;
    beginKnown();
    EXPECT_EQ(answersTo([&] {
                  drags_.decide(FakeDrags::copy);
                  drags_.drop();
              }),
              Requests{"destroy"});
}

TEST_F(DragTest, LeavesIfItIsDroppedWhereTheDockRefusesIt) {
    input_.canDrop = false;
    beginKnown();
    (void)input_.take();

    EXPECT_EQ(answersTo([&] {
                  drags_.decide(FakeDrags::copy);
                  drags_.drop();
              }),
              Requests{"destroy"});
    EXPECT_EQ(input_.take(), (Happenings{"drag left"}));
}

TEST_F(DragTest, LeavesTheDockAloneIfItsSourceSendsNothing) {
    drags_.contents.clear();
    beginUseless();

    EXPECT_EQ(answersTo([&] { drags_.motion(1, 2); }), (Requests{"refuse", "set_actions 0 0"}));
    EXPECT_EQ(answersTo([&] { drags_.drop(); }), Requests{"destroy"});
    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(DragTest, LeavesTheDockAloneIfItsSourceSendsNonsense) {
    drags_.contents = {{"text/plain", "/a\nno path \xff"}};
    beginUseless("text/plain");

    EXPECT_EQ(answersTo([&] { drags_.motion(1, 2); }), (Requests{"refuse", "set_actions 0 0"}));
    receive([&] { drags_.leave(); });
    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(DragTest, LeavesTheDockAloneIfItsListHasOnlyRemarks) {
    drags_.contents = {{"text/uri-list", "#file:///a\r\n\r\n"}};
    beginUseless();

    EXPECT_EQ(answersTo([&] { drags_.motion(1, 2); }), (Requests{"refuse", "set_actions 0 0"}));
    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(DragTest, Leaves) {
    beginKnown();
    (void)input_.take();

    EXPECT_EQ(answersTo([&] { drags_.leave(); }), Requests{"destroy"});
    EXPECT_EQ(input_.take(), (Happenings{"drag left"}));
}

TEST_F(DragTest, ReportsNothingIfItLeavesWhileItIsRead) {
    drags_.delaysAnswers = true;
    begin();

    EXPECT_EQ(answersTo([&] { drags_.leave(); }), Requests{"destroy"});
    compositor_.run([&] { drags_.answerPipes(); });
    test::deliverPendingEvents();
    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(DragTest, LeavesWhenItsSeatGoes) {
    beginKnown();
    (void)input_.take();

    fake_.withdraw();
    awaitRead();

    EXPECT_EQ(input_.take(), (Happenings{"drag left"}));
}

TEST_F(DragTest, IsIgnoredOnceItsSurfaceIsGone) {
    beginKnown();
    (void)input_.take();
    seat_->surfaces().remove(*surface_);
    surface_.reset();

    EXPECT_EQ(answersTo([&] { drags_.motion(1, 2); }), (Requests{"refuse", "set_actions 0 0"}));
    EXPECT_EQ(answersTo([&] { drags_.drop(); }), Requests{"destroy"});
    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(DragTest, IsIgnoredWithoutAnEntry) {
    receive([&] {
        drags_.motion(1, 2);
        drags_.drop();
        drags_.leave();
    });
    EXPECT_TRUE(input_.isEmpty());
}

TEST_F(DragTest, IsNotTheClipboard) {
    EXPECT_EQ(answersTo([&] {
                  drags_.announce({"text/uri-list"}, 0);
                  drags_.offerClipboard();
              }),
              Requests{"destroy"});
    EXPECT_TRUE(input_.isEmpty());

    beginKnown();
    EXPECT_EQ(firstOf(input_.take()), "drag entered file:///a file:///b");
}

/// Without actions, a drop could not be finished.
TEST(DragDevice, NeedsActions) {
    test::testApplication();
    FakeCompositor compositor;
    FakeSeat seat{compositor};
    const FakeDrags drags{compositor, 2};
    const auto display = compositor.connect();
    const WaylandConnection connection{display.get()};
    const auto bound = connection.bind<wl_seat>(wl_seat_interface, 5);
    const InputSurfaces surfaces;

    EXPECT_EQ(DragDevice::create(connection, *bound, surfaces), nullptr);
}

}
}
