#include "Foundation/CallbackList.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace vireline {
namespace {

TEST(CallbackList, CallsItsListenersInTheOrderTheyCame) {
    CallbackList<const std::string&, int> list;
    std::string heard;
    const Subscription first =
        list.add([&](const std::string& text, int n) { heard += "1" + text + std::to_string(n); });
    const Subscription second =
        list.add([&](const std::string& text, int n) { heard += "2" + text + std::to_string(n); });

    list.notify(std::string{"x"}, 7);

    EXPECT_EQ(heard, "1x72x7");
}

TEST(CallbackList, ForgetsAListenerWhoseSubscriptionEnded) {
    CallbackList<> list;
    int kept = 0;
    int ended = 0;
    const Subscription keeping = list.add([&] { ++kept; });
    Subscription ending = list.add([&] { ++ended; });

    list.notify();
    ending.reset();
    list.notify();

    EXPECT_EQ(kept, 2);
    EXPECT_EQ(ended, 1);
}

TEST(CallbackList, LetsAListenerEndItself) {
    CallbackList<> list;
    int calls = 0;
    Subscription own;
    own = list.add([&, text = std::string(100, 'x')] {
        own.reset();
        // The listener's captures must still be alive.
        calls += static_cast<int>(text.size());
    });

    list.notify();
    list.notify();

    EXPECT_EQ(calls, 100);
}

TEST(CallbackList, DoesNotCallAListenerThatAnEarlierOneEnded) {
    CallbackList<> list;
    bool isCalled = false;
    Subscription later;
    const Subscription earlier = list.add([&] { later.reset(); });
    later = list.add([&] { isCalled = true; });

    list.notify();

    EXPECT_FALSE(isCalled);
}

TEST(CallbackList, LetsALaterListenerEndAnEarlierOne) {
    CallbackList<> list;
    int calls = 0;
    Subscription earlier = list.add([&] { ++calls; });
    const Subscription later = list.add([&] { earlier.reset(); });

    list.notify();
    list.notify();

    EXPECT_EQ(calls, 1);
}

TEST(CallbackList, CallsAListenerAddedDuringACallFromTheNextTimeOn) {
    CallbackList<> list;
    int calls = 0;
    std::vector<Subscription> added;
    const Subscription adding = list.add([&] {
        // Enough to reallocate the list's storage.
        while (added.size() < 100)
            added.push_back(list.add([&] { ++calls; }));
    });

    list.notify();
    EXPECT_EQ(calls, 0);
    list.notify();
    EXPECT_EQ(calls, 100);
}

TEST(CallbackList, MayBeNotifiedFromAListener) {
    CallbackList<int> list;
    std::vector<int> heard;
    const Subscription listening = list.add([&](int depth) {
        heard.push_back(depth);
        if (depth < 3)
            list.notify(depth + 1);
    });

    list.notify(1);

    EXPECT_EQ(heard, (std::vector{1, 2, 3}));
}

TEST(CallbackList, MayGoBeforeItsListenersHaveHeard) {
    std::optional<CallbackList<>> list{std::in_place};
    bool isCalled = false;
    const Subscription ending = list->add([&] { list.reset(); });
    const Subscription later = list->add([&] { isCalled = true; });

    list->notify();

    EXPECT_FALSE(list);
    EXPECT_TRUE(isCalled);
}

TEST(CallbackList, MayGoBeforeItsSubscriptions) {
    Subscription subscription;
    {
        CallbackList<> list;
        subscription = list.add([] {});
    }
    subscription.reset();
    EXPECT_FALSE(subscription);
}

}
}
