#include "Translation/VnodeEvents.hpp"

#include <gtest/gtest.h>

namespace vireline {

static std::ostream& operator<<(std::ostream& out, const FileEventSet& events) {
    return out << "{changed " << events.changed << ", removed " << events.removed << '}';
}

namespace {

using namespace macos;

TEST(VnodeEvents, TellWritingAndExtendingAsAChange) {
    EXPECT_EQ(VnodeEvents::fileEvents(VnodeEvents::written), (FileEventSet{.changed = true}));
    EXPECT_EQ(VnodeEvents::fileEvents(VnodeEvents::extended), (FileEventSet{.changed = true}));
}

TEST(VnodeEvents, TellDeletingAndRenamingAsARemoval) {
    EXPECT_EQ(VnodeEvents::fileEvents(VnodeEvents::removed), (FileEventSet{.removed = true}));
    EXPECT_EQ(VnodeEvents::fileEvents(VnodeEvents::renamed), (FileEventSet{.removed = true}));
}

TEST(VnodeEvents, TellABatchAsAllThatItHolds) {
    EXPECT_EQ(VnodeEvents::fileEvents(VnodeEvents::written | VnodeEvents::renamed),
              (FileEventSet{.changed = true, .removed = true}));
}

TEST(VnodeEvents, IgnoreOtherEvents) {
    constexpr unsigned long attributes = 0x8;
    EXPECT_EQ(VnodeEvents::fileEvents(attributes), FileEventSet{});
}

}
}
