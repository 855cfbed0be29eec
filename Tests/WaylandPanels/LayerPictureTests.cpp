#include "Panels/Picture/LayerPicture.hpp"
#include "Panels/Surfaces/DockSurface.hpp"
#include "WaylandPanels/ShellTest.hpp"
#include "WaylandPanels/SilentWindow.hpp"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {
namespace {

/// The picture of a dock of 100 x 40 points, on a surface with 10 points above it.
class LayerPictureTest : public ShellTest {
protected:
    void SetUp() override {
        ShellTest::SetUp();
        surface_.emplace(context(), output(), QRect{0, 0, 100, 50}, input_,
                         DockSurface::Events{[this] { ++configured_; }, [] {}, [] {}});
        ASSERT_TRUE(eventually([this] { return configured_ == 1; }));
        picture_.emplace(context(), *surface_);
        picture_->setLayout({.window = {100, 50},
                             .active = {0, 10, 100, 40},
                             .mapping = {QPoint{0, 10}, 1},
                             .view = {100, 40}});
        picture_->setScene(dotAt(20));
        (void)committed([this] { picture_->update(false, false); });
    }
    void TearDown() override {
        picture_.reset();
        surface_.reset();
        ShellTest::TearDown();
    }

    static Scene dotAt(double x) {
        return {{{.id = {NodeID::Part::dot, 1}, .frame = {x, 10, 8, 8}, .content = DotNode{}}}, {}};
    }

    /// What surfaces and regions are requested to do by the call.
    template <class Call>
    [[nodiscard]] Requests committed(const Call& call) {
        (void)shell().requests();
        call();
        settle();
        Requests all = shell().requests();
        std::erase_if(all, [](const std::string& request) {
            return !request.starts_with("wl_surface") && !request.starts_with("wl_region add");
        });
        return all;
    }
    [[nodiscard]] Requests updated(bool mustCommit = false, bool awaitsFrame = false) {
        return committed([&] { picture_->update(mustCommit, awaitsFrame); });
    }
    static bool has(const Requests& requests, const std::string& wanted) {
        return std::ranges::count(requests, wanted) > 0;
    }

    NoSurfaceInput input_;
    std::optional<DockSurface> surface_;
    int configured_ = 0;
    std::optional<LayerPicture> picture_;
};

TEST_F(LayerPictureTest, CommitsNothingIfNothingHasChanged) {
    EXPECT_EQ(updated(), Requests{});
}

TEST_F(LayerPictureTest, CommitsWhatHasChanged) {
    picture_->setScene(dotAt(60));

    const Requests requests = updated();

    EXPECT_TRUE(has(requests, "wl_surface commit"));
    // Where the dot was and where it is now, with a border for smooth edges, but nothing else.
    int damages = 0;
    for (const std::string& request : requests) {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        // NOLINTNEXTLINE(cert-err34-c,cppcoreguidelines-pro-type-vararg): the log's own format
        if (std::sscanf(request.c_str(), "wl_surface damage_buffer %d %d %d %d", &x, &y, &width,
                        &height) != 4)
            continue;
        ++damages;
        EXPECT_TRUE((QRect{18, 18, 52, 12}.contains(QRect{x, y, width, height}))) << request;
    }
    EXPECT_GT(damages, 0);
}

TEST_F(LayerPictureTest, CommitsANewPlaceWithoutPainting) {
    EXPECT_EQ(updated(/*mustCommit=*/true), Requests{"wl_surface commit"});
}

TEST_F(LayerPictureTest, CommitsSomethingWhenAFrameIsAwaited) {
    const Requests requests = updated(false, /*awaitsFrame=*/true);

    EXPECT_TRUE(has(requests, "wl_surface damage_buffer 0 0 1 1"));
    EXPECT_TRUE(has(requests, "wl_surface commit"));
}

/// The compositor would wake the program up for it.
TEST_F(LayerPictureTest, AwaitsNoFrameAfterAPictureUnlessItIsToldTo) {
    picture_->setScene(dotAt(60));
    EXPECT_FALSE(has(updated(), "wl_surface frame"));

    picture_->setScene(dotAt(20));
    EXPECT_TRUE(has(updated(false, /*awaitsFrame=*/true), "wl_surface frame"));
}

TEST_F(LayerPictureTest, PaintsEverythingInNewColours) {
    picture_->lookChanged();

    EXPECT_TRUE(has(updated(), "wl_surface damage_buffer 0 0 100 50"));
}

TEST_F(LayerPictureTest, TakesThePointerOnTheDockOnly) {
    EXPECT_TRUE(picture_->takesPointer({50, 10}));
    EXPECT_FALSE(picture_->takesPointer({50, 9.9}));
    EXPECT_FALSE(picture_->takesPointer({-0.1, 20}));
    EXPECT_FALSE(picture_->takesPointer({100, 20}));
}

TEST_F(LayerPictureTest, CommitsAnInputRegionThatHasChanged) {
    Scene scene = dotAt(20);
    scene.inputRegion = Rect{0, 30, 100, 10};
    picture_->setScene(scene);

    const Requests requests = updated();

    EXPECT_TRUE(has(requests, "wl_region add 0 40 100 10"));
    EXPECT_TRUE(has(requests, "wl_surface set_input_region"));
    EXPECT_EQ(requests.back(), "wl_surface commit");
    EXPECT_FALSE(picture_->takesPointer({50, 20}));
    EXPECT_TRUE(picture_->takesPointer({50, 45}));
}

/// No region at all would mean the whole surface.
TEST_F(LayerPictureTest, TakesThePointerNowhereIfTheSceneSaysSo) {
    Scene scene = dotAt(20);
    scene.inputRegion = Rect{};
    picture_->setScene(scene);

    const Requests requests = updated();

    EXPECT_TRUE(has(requests, "wl_surface set_input_region"));
    EXPECT_TRUE(std::ranges::none_of(
        requests, [](const std::string& request) { return request.starts_with("wl_region add"); }));
    EXPECT_FALSE(picture_->takesPointer({50, 20}));
}

}
}
