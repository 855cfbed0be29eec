#include "Foundation/Observable.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vireline {
namespace {

TEST(Observable, AnnouncesOnlyAValueThatDiffers) {
    Observable<std::string> name{"a"};
    int changes = 0;
    const Subscription observation = name.observe([&] { ++changes; });

    name.set("a");
    EXPECT_EQ(changes, 0);
    name.set("b");
    EXPECT_EQ(changes, 1);
    name.set("b");
    EXPECT_EQ(changes, 1);
}

TEST(Observable, HasTheNewValueInPlaceWhenItAnnounces) {
    Observable<int> number{1};
    int seen = 0;
    const Subscription observation = number.observe([&] { seen = number.get(); });
    number.set(5);
    EXPECT_EQ(seen, 5);
}

TEST(Observable, StartsWithAnEmptyValueWithoutNotifying) {
    Observable<int> number;
    int changes = 0;
    const Subscription observation = number.observe([&] { ++changes; });
    EXPECT_EQ(number.get(), 0);
    EXPECT_EQ(changes, 0);
}

TEST(Observable, StopsAnnouncingWhereTheSubscriptionEnded) {
    Observable<int> number;
    int changes = 0;
    Subscription observation = number.observe([&] { ++changes; });
    number.set(1);
    observation.reset();
    number.set(2);
    EXPECT_EQ(changes, 1);
}

TEST(Observable, TakesAWriteFromAListener) {
    Observable<int> number;
    std::vector<int> seen;
    const Subscription clamping = number.observe([&] {
        if (number.get() > 10)
            number.set(10);
    });
    const Subscription watching = number.observe([&] { seen.push_back(number.get()); });

    number.set(50);

    EXPECT_EQ(number.get(), 10);
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.back(), 10);
}

TEST(Observable, MayGoWhileItAnnounces) {
    auto number = std::make_unique<Observable<int>>(0);
    int changes = 0;
    const Subscription ending = number->observe([&] { number.reset(); });
    const Subscription later = number->observe([&] { ++changes; });

    number->set(1);

    EXPECT_FALSE(number);
    EXPECT_EQ(changes, 1);
}

TEST(Observable, TakesItsOwnValue) {
    Observable<std::vector<int>> numbers{std::vector{1, 2, 3}};
    numbers.set(numbers.get());
    EXPECT_EQ(numbers.get(), (std::vector{1, 2, 3}));
}

}
}
