#include "Painting/Pixels/Damage.hpp"

#include <gtest/gtest.h>

#include <QRegion>
#include <random>

namespace vireline::xdg {
namespace {

QRegion regionOf(const Damage& damage) {
    QRegion region;
    for (const QRect& rect : damage.rects())
        region += rect;
    return region;
}

TEST(Damage, IsEmptyAtFirstAndStaysSoWithEmptyRectangles) {
    Damage damage;
    damage.add({});
    damage.add({5, 5, 0, 10});
    EXPECT_TRUE(damage.isEmpty());
}

TEST(Damage, KeepsApartWhatIsFarApart) {
    Damage damage;
    damage.add({0, 0, 10, 10});
    damage.add({100, 0, 10, 10});
    EXPECT_EQ(damage.rects().size(), 2U);
}

TEST(Damage, JoinsWhatTouches) {
    Damage damage;
    damage.add({0, 0, 10, 10});
    damage.add({20, 0, 10, 10});
    damage.add({10, 0, 10, 10});
    ASSERT_EQ(damage.rects().size(), 1U);
    EXPECT_EQ(damage.rects().front(), QRect(0, 0, 30, 10));
}

TEST(Damage, JoinsTheNearestWhenThereAreTooMany) {
    Damage damage;
    for (const int x : {0, 100, 200, 300})
        damage.add({x, 0, 10, 10});
    damage.add({315, 0, 10, 10});
    ASSERT_EQ(damage.rects().size(), 4U);
    EXPECT_EQ(regionOf(damage), QRegion(0, 0, 10, 10) + QRegion(100, 0, 10, 10) +
                                    QRegion(200, 0, 10, 10) + QRegion(300, 0, 25, 10));
}

TEST(Damage, AlwaysHoldsAllThatWasAddedWithoutOverlaps) {
    constexpr int rounds = 2000;
    std::mt19937 random{7};
    const auto upTo = [&](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    for (int round = 0; round < rounds; ++round) {
        Damage damage;
        QRegion added;
        for (int i = 0; i < 12; ++i) {
            const QRect rect{upTo(200), upTo(60), 1 + upTo(40), 1 + upTo(40)};
            damage.add(rect);
            added += rect;
            ASSERT_TRUE((added - regionOf(damage)).isEmpty());
        }
        for (std::size_t i = 0; i < damage.rects().size(); ++i) {
            for (std::size_t j = 0; j < i; ++j)
                ASSERT_FALSE(damage.rects()[i].intersects(damage.rects()[j]));
        }
    }
}

}
}
