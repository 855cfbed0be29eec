#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace vireline {
namespace {

/// Subscribes to others with callbacks that outlive it.
class Owner {
public:
    explicit Owner(int& calls) : calls_(calls) {}

    [[nodiscard]] std::function<void()> counting() {
        return lifetime_.guard([this] { ++calls_; });
    }
    [[nodiscard]] std::function<int(int)> adding() {
        return lifetime_.guardOr(-1, [this](int more) { return calls_ + more; });
    }

private:
    int& calls_;
    Lifetime lifetime_;
};

TEST(Lifetime, CallsThroughWhileItsOwnerLives) {
    int calls = 0;
    Owner owner{calls};
    owner.counting()();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(owner.adding()(41), 42);
}

TEST(Lifetime, DoesNothingOnceItsOwnerIsGone) {
    int calls = 0;
    auto owner = std::make_unique<Owner>(calls);
    const auto counting = owner->counting();

    owner.reset();
    counting();

    EXPECT_EQ(calls, 0);
}

TEST(Lifetime, GivesTheFallbackOnceItsOwnerIsGone) {
    int calls = 0;
    auto owner = std::make_unique<Owner>(calls);
    const auto adding = owner->adding();

    owner.reset();

    EXPECT_EQ(adding(41), -1);
}

TEST(Lifetime, PassesArgumentsOnAsTheyCame) {
    const Lifetime lifetime;
    std::string text = "before";
    lifetime.guard([](std::string& changed) { changed = "after"; })(text);
    EXPECT_EQ(text, "after");

    std::unique_ptr<int> kept;
    lifetime.guard([&](std::unique_ptr<int> moved) { kept = std::move(moved); })(
        std::make_unique<int>(3));
    EXPECT_EQ(*kept, 3);
}

TEST(Lifetime, DoesNotCallAnOwnerThatAnEarlierListenerEnded) {
    int calls = 0;
    CallbackList<> list;
    auto owner = std::make_unique<Owner>(calls);
    const Subscription ending = list.add([&] { owner.reset(); });
    // Not owned by the owner, so it outlives it.
    const Subscription later = list.add(owner->counting());

    list.notify();

    EXPECT_EQ(calls, 0);
}

TEST(Lifetime, MayEndInsideTheGuardedCall) {
    auto lifetime = std::make_unique<Lifetime>();
    int calls = 0;
    const auto ending = lifetime->guard([&, text = std::string(100, 'x')] {
        lifetime.reset();
        calls += static_cast<int>(text.size());
    });

    ending();
    ending();

    EXPECT_EQ(calls, 100);
}

TEST(Lifetime, GuardsTakeOnlyWhatTheirFunctionsTake) {
    const Lifetime lifetime;
    const auto guarded = lifetime.guard([](int) {});
    const auto guardedOr = lifetime.guardOr(0, [](int number) { return number; });

    EXPECT_TRUE((std::is_invocable_v<decltype(guarded), int>));
    EXPECT_TRUE((std::is_invocable_v<decltype(guardedOr), int>));
    EXPECT_FALSE((std::is_invocable_v<decltype(guarded), std::string>));
    EXPECT_FALSE((std::is_invocable_v<decltype(guardedOr), std::string>));
}

}
}
