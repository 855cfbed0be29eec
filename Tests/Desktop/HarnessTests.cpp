/// Tests of the virtual desktop itself, so that other failures can be blamed on the program.
#include "DesktopTest.hpp"

#include <xcb/randr.h>

namespace vireline::desktop {
namespace {

class Harness : public DesktopTest {
protected:
    std::vector<std::pair<std::string, PixelRect>> attached() {
        const auto& client = desktop().client();
        const Owned<xcb_randr_get_monitors_reply_t> reply{xcb_randr_get_monitors_reply(
            client.get(), xcb_randr_get_monitors(client.get(), client.root(), 1), nullptr)};
        std::vector<std::pair<std::string, PixelRect>> monitors;
        auto next = xcb_randr_get_monitors_monitors_iterator(reply.get());
        for (; next.rem > 0; xcb_randr_monitor_info_next(&next)) {
            const Owned<xcb_get_atom_name_reply_t> name{xcb_get_atom_name_reply(
                client.get(), xcb_get_atom_name(client.get(), next.data->name), nullptr)};
            monitors.emplace_back(
                std::string{xcb_get_atom_name_name(name.get()),
                            static_cast<std::size_t>(xcb_get_atom_name_name_length(name.get()))},
                PixelRect{next.data->x, next.data->y, next.data->width, next.data->height});
        }
        std::ranges::sort(monitors, {}, [](const auto& monitor) { return monitor.first; });
        return monitors;
    }
};

TEST_F(Harness, AttachesExactlyTheMonitorsAskedFor) {
    make({.monitors = threeMonitors()});
    using Attached = std::vector<std::pair<std::string, PixelRect>>;
    EXPECT_EQ(attached(), (Attached{{"above", {320, 0, 1280, 800}},
                                    {"main", {1280, 800, 1600, 900}},
                                    {"side", {2880, 600, 1024, 768}}}));
    desktop().setMonitors({{"side", {0, 0, 1024, 768}}});
    EXPECT_EQ(attached(), (Attached{{"side", {0, 0, 1024, 768}}}));
    desktop().setMonitors(twoMonitors());
    EXPECT_EQ(attached(),
              (Attached{{"left", {0, 0, 1920, 1080}}, {"right", {1920, 0, 1920, 1080}}}));
}

TEST_F(Harness, RunsAppsWhoseWindowsCanBeToldApart) {
    make({.monitors = twoMonitors()});
    const auto apps = someApps(2);
    desktop().launch(apps[0], {"--windows", "2"});
    desktop().launch(apps[1]);
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[0]).size() == 2; }));
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[1]).size() == 1; }));
}

TEST_F(Harness, ClicksWhereItSays) {
    make({.monitors = twoMonitors()});
    const App app = someApps(1).front();
    const auto record = desktop().home().scratch() / "clicks";
    desktop().launch(app, {"--at", "400,300", "--record", record.string()});
    ASSERT_TRUE(eventually([&] { return !desktop().visibleWindowsOf(app).empty(); }));
    desktop().pointer().click({500, 400});
    EXPECT_TRUE(
        eventually([&] { return readFile(record).find("press 500 400") != std::string::npos; }));
}

TEST_F(Harness, SeesColoursWithAndWithoutACompositor) {
    make({.monitors = twoMonitors()});
    const App app{"org.example.Plain", "Plain", {}, {"--at", "100,100", "--colour", "5a14e6"}, {}};
    const Colour colour{0x5a, 0x14, 0xe6};
    desktop().launch(app);
    EXPECT_TRUE(turns({250, 250}, colour));
    desktop().startCompositor();
    EXPECT_TRUE(turns({250, 250}, colour));
}

TEST_F(Harness, KeepsAHomeOfItsOwn) {
    make({.monitors = twoMonitors()});
    const auto apps = someApps(1);
    EXPECT_TRUE(std::filesystem::exists(desktop().home().install(apps[0])));
    EXPECT_TRUE(desktop().home().environment().at("HOME").starts_with(
        std::filesystem::temp_directory_path().string()));
}

}
}
