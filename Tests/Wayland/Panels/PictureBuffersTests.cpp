#include "Connection/WaylandConnection.hpp"
#include "Panels/Picture/PictureBuffers.hpp"
#include "Wayland/Fakes/FakeCompositor.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>
#include <wayland-server-core.h>

#include <limits>
#include <optional>
#include <set>

namespace vireline::wayland {
namespace {

constexpr QRect leftHalf{0, 0, 4, 8};
constexpr QRect rightHalf{4, 0, 4, 8};
constexpr QRect allPixels{0, 0, 8, 8};

/// Pictures of 8 x 8 pixels. The compositor keeps buffers until the test gives them back.
class PictureBuffersTest : public testing::Test {
protected:
    PictureBuffersTest() {
        compositor_.offerMemory();
        compositor_.offer(wl_compositor_interface, 4,
                          [this](wl_resource* bound) { client_ = wl_resource_get_client(bound); });
        display_ = compositor_.connect();
        connection_.emplace(display_.get());
        marker_ = connection_->bind<wl_compositor>(wl_compositor_interface, 4);
        memory_ = connection_->bind<wl_shm>(wl_shm_interface, 1);
        buffers_.emplace(*memory_);
        EXPECT_TRUE(buffers_->resize(allPixels.size()));
    }

    /// Shows a picture that differs from the one before in this rectangle.
    wl_buffer& show(const QRect& changed, QColor color) {
        QImage& image = buffers_->next();
        for (int y = changed.top(); y <= changed.bottom(); ++y) {
            for (int x = changed.left(); x <= changed.right(); ++x)
                image.setPixelColor(x, y, color);
        }
        xdg::Damage damage;
        damage.add(changed);
        return buffers_->finish(damage);
    }
    /// The compositor no longer reads the buffer.
    void release(wl_buffer& buffer) {
        wl_display_roundtrip(display_.get());
        const std::uint32_t number = wl_proxy_get_id(reinterpret_cast<wl_proxy*>(&buffer));
        compositor_.run([&] {
            constexpr std::uint32_t releaseEvent = 0;
            wl_resource_post_event(wl_client_get_object(client_, number), releaseEvent);
        });
        wl_display_roundtrip(display_.get());
    }
    [[nodiscard]] QColor nextAt(const QRect& part) {
        return buffers_->next().pixelColor(part.center());
    }

    FakeCompositor compositor_;
    wl_client* client_ = nullptr;
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    Proxy<wl_compositor> marker_;
    Proxy<wl_shm> memory_;
    std::optional<PictureBuffers> buffers_;
};

TEST_F(PictureBuffersTest, AreTransparentAtFirst) {
    const QImage& image = buffers_->next();
    EXPECT_EQ(image.size(), allPixels.size());
    EXPECT_EQ(image.pixelColor(3, 3), QColor{Qt::transparent});
}

TEST_F(PictureBuffersTest, ArePaintedOnlyWhereTheCompositorDoesNotRead) {
    wl_buffer& first = show(allPixels, Qt::red);
    wl_buffer& second = show(allPixels, Qt::green);
    EXPECT_NE(&first, &second);

    release(first);
    wl_buffer& third = show(allPixels, Qt::blue);
    EXPECT_EQ(&third, &first) << "given back";
    EXPECT_NE(&show(allPixels, Qt::white), &second) << "still read";
}

TEST_F(PictureBuffersTest, AreAsManyAsTheCompositorHoldsAndOneMore) {
    std::set<wl_buffer*> shown;
    for (const QColor color : {Qt::red, Qt::green, Qt::blue, Qt::white})
        shown.insert(&show(allPixels, color));
    EXPECT_EQ(shown.size(), 4U);
    EXPECT_EQ(nextAt(allPixels), QColor{Qt::white});
}

TEST_F(PictureBuffersTest, AreNotMoreIfTheCompositorHoldsAllOfThem) {
    std::set<wl_buffer*> shown;
    wl_buffer* latest = nullptr;
    for (int i = 0; i < 10; ++i) {
        wl_buffer* const next = &show(QRect{i % 8, 0, 1, 1}, Qt::red);
        EXPECT_NE(next, latest) << "the one on the display is the last to be painted over";
        latest = next;
        shown.insert(next);
    }
    EXPECT_EQ(shown.size(), PictureBuffers::maximum);
}

TEST_F(PictureBuffersTest, CarryTheLatestPictureOverAfterPartialChanges) {
    wl_buffer& first = show(allPixels, Qt::red);
    wl_buffer& second = show(leftHalf, Qt::green);
    release(first);
    EXPECT_EQ(&show(rightHalf, Qt::blue), &first);
    release(second);

    const QImage& next = buffers_->next();
    EXPECT_EQ(next.pixelColor(leftHalf.center()), QColor{Qt::green});
    EXPECT_EQ(next.pixelColor(rightHalf.center()), QColor{Qt::blue});
}

TEST_F(PictureBuffersTest, CarryOverWhatABufferHasMissedForSeveralPictures) {
    wl_buffer& first = show(allPixels, Qt::red);
    wl_buffer& second = show(QRect{0, 0, 1, 1}, Qt::green);
    wl_buffer& third = show(QRect{7, 7, 1, 1}, Qt::blue);
    release(second);
    EXPECT_EQ(&show(QRect{7, 0, 1, 1}, Qt::white), &second);
    release(first);
    release(third);

    const QImage& next = buffers_->next();
    EXPECT_EQ(next.pixelColor(0, 0), QColor{Qt::green});
    EXPECT_EQ(next.pixelColor(7, 7), QColor{Qt::blue});
    EXPECT_EQ(next.pixelColor(7, 0), QColor{Qt::white});
    EXPECT_EQ(next.pixelColor(3, 3), QColor{Qt::red});
}

TEST_F(PictureBuffersTest, AreTransparentInANewSize) {
    show(allPixels, Qt::red);

    ASSERT_TRUE(buffers_->resize({16, 4}));

    EXPECT_EQ(buffers_->size(), (QSize{16, 4}));
    const QImage& image = buffers_->next();
    EXPECT_EQ(image.size(), (QSize{16, 4}));
    EXPECT_EQ(image.pixelColor(3, 3), QColor{Qt::transparent});
}

TEST_F(PictureBuffersTest, KeepTheirContentInTheSameSize) {
    show(allPixels, Qt::red);
    EXPECT_TRUE(buffers_->resize(allPixels.size()));
    EXPECT_EQ(nextAt(allPixels), QColor{Qt::red});
}

TEST_F(PictureBuffersTest, ReportASizeWithoutPixels) {
    for (const QSize size : {QSize{0, 8}, QSize{8, 0}, QSize{-8, 8}}) {
        EXPECT_FALSE(buffers_->resize(size));
        EXPECT_TRUE(buffers_->size().isEmpty());
    }
    EXPECT_TRUE(buffers_->resize(allPixels.size()));
}

/// The protocol counts a pool's bytes in 31 bits, and compositors end the connection of a program
/// that exceeds this.
TEST_F(PictureBuffersTest, ReportAnAbsurdSize) {
    constexpr int most = std::numeric_limits<int>::max();
    for (const QSize size :
         {QSize{most, most}, QSize{most, 1}, QSize{1, most}, QSize{32768, 32768}}) {
        EXPECT_FALSE(buffers_->resize(size)) << size.width() << 'x' << size.height();
        EXPECT_TRUE(buffers_->size().isEmpty());
    }
    EXPECT_GE(wl_display_roundtrip(display_.get()), 0) << "the connection is intact";
}

}
}
