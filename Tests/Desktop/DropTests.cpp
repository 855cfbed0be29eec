/// Files dragged from another program's window and dropped on a dock.
#include "AnswerTimes.hpp"
#include "DesktopTest.hpp"
#include "VirtualDesktop/DragSource.hpp"
#include "VirtualDesktop/FileDrag.hpp"

#include <csignal>
#include <fstream>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

class Drop : public DesktopTest {
protected:
    static constexpr auto taken = "done XdndActionCopy";

    /// Runs the program with two pinned apps and a third that is only installed.
    void run(Options options = {}) {
        runWithTwoDisplays({apps[0], apps[1]}, std::move(options));
        desktop().home().install(apps[2]);
        ASSERT_TRUE(docksSettle(tiles(2)));
    }

    /// Creates a file in the home folder, on the same volume as the Trash.
    fs::path makeFile(const std::string& name) {
        auto file = desktop().home().folder() / name;
        std::ofstream{file} << name;
        return file;
    }
    [[nodiscard]] fs::path trashed(const std::string& name) {
        return desktop().home().folder() / ".local/share/Trash/files" / name;
    }
    [[nodiscard]] fs::path thirdApp() { return desktop().home().entry(apps[2].id); }

    [[nodiscard]] PixelPoint tile(int index) { return layout("right", tiles(2)).icon(index); }
    [[nodiscard]] Picture trashPicture() {
        const auto icon = tile(trash);
        constexpr int reach = 26;
        return desktop().picture({icon.x - reach, icon.y - reach, 2 * reach, 2 * reach});
    }
    static constexpr int downloads = 2;
    static constexpr int trash = 3;

    /// Drags the content to a tile, drops it and moves the pointer away; returns the outcome.
    std::string drop(const FileDrag::Content& content, int onTile) {
        FileDrag drag{desktop(), content};
        static_cast<void>(drag.moveTo(tile(onTile)));
        auto outcome = drag.drop();
        desktop().pointer().moveTo(desktop().monitor("right").frame.center());
        return outcome;
    }

    const std::vector<App> apps = someApps(3);
};

TEST_F(Drop, OfAnAppAddsItToAListOfTheUsersOwn) {
    run();
    EXPECT_EQ(drop({urlList({thirdApp()})}, 1), taken);
    EXPECT_TRUE(logs("manual add " + apps[2].id));
    EXPECT_EQ(desktop().log().count("manual list seeded from mirror, 2 apps"), 1);
    EXPECT_EQ(desktop().log().count("list edited while mirroring: switched to manual, seeded"), 1);
    ASSERT_TRUE(docksSettle(tiles(3)));
    EXPECT_TRUE(turns(layout("right", tiles(3)).icon(2), apps[2].colour));
    const auto saved = readFile(desktop().home().preferences());
    EXPECT_TRUE(saved.contains(apps[2].id)) << saved;
}

TEST_F(Drop, OfAnAppIsUndoneFromTheMenuBesideTheTiles) {
    run();
    ASSERT_EQ(drop({urlList({thirdApp()})}, 1), taken);
    ASSERT_TRUE(docksSettle(tiles(3)));
    ASSERT_TRUE(turns(layout("right", tiles(3)).icon(2), apps[2].colour));
    const auto menu = openMenu(besideTiles(layout("right", tiles(3)), 3));
    ASSERT_NE(menu, PixelRect{});
    choose(menu, 0, 3);
    EXPECT_TRUE(logs("manual undo " + apps[2].id));
    EXPECT_TRUE(docksSettle(tiles(2)));
    EXPECT_TRUE(turns(tile(1), apps[1].colour));
    EXPECT_TRUE(eventually([&] {
        return readFile(desktop().home().preferences()).contains(R"("sourceMode": "mirror")");
    })) << readFile(desktop().home().preferences());
}

TEST_F(Drop, OfAnAppShowsOnEveryDock) {
    run({.monitors = threeMonitors()});
    FileDrag drag{desktop(), {urlList({thirdApp()})}};
    static_cast<void>(drag.moveTo(layout("side", tiles(2)).icon(0)));
    EXPECT_EQ(drag.drop(), taken);
    desktop().pointer().moveTo(desktop().monitor("main").frame.center());
    ASSERT_TRUE(docksSettle(tiles(3)));
    EXPECT_TRUE(turns(layout("above", tiles(3)).icon(2), apps[2].colour));
    EXPECT_TRUE(turns(layout("side", tiles(3)).icon(2), apps[2].colour));
}

TEST_F(Drop, OfAnAppThatIsInTheListChangesNothing) {
    run();
    EXPECT_EQ(drop({urlList({thirdApp()})}, 0), taken);
    ASSERT_TRUE(docksSettle(tiles(3)));
    FileDrag again{desktop(), {urlList({thirdApp()})}};
    static_cast<void>(again.moveTo(layout("right", tiles(3)).icon(0)));
    EXPECT_EQ(again.drop(), taken);
    desktop().pointer().click(layout("right", tiles(3)).icon(2));
    ASSERT_TRUE(logs("click launch"));
    EXPECT_EQ(desktop().log().count("manual add"), 1);
    EXPECT_TRUE(docksSettle(tiles(3)));
}

TEST_F(Drop, OnTrashTrashesFiles) {
    run();
    const std::vector files{makeFile("first"), makeFile("second one"), makeFile("th%ird")};
    EXPECT_EQ(drop({urlList(files)}, trash), taken);
    EXPECT_TRUE(logs("trashed first"));
    EXPECT_TRUE(logs("trashed second one"));
    EXPECT_TRUE(logs("trashed th%ird"));
    for (const auto& file : files) {
        EXPECT_FALSE(fs::exists(file));
        EXPECT_TRUE(fs::exists(trashed(file.filename())));
    }
    EXPECT_EQ(desktop().log().count("manual"), 0);
}

TEST_F(Drop, OnTrashGoesOnAfterAFailure) {
    run();
    const std::vector files{makeFile("first"), desktop().home().folder() / "missing",
                            makeFile("third")};
    EXPECT_EQ(drop({urlList(files)}, trash), taken);
    EXPECT_TRUE(logs("trashed third"));
    EXPECT_EQ(desktop().log().count("trashed first"), 1);
    EXPECT_EQ(desktop().log().count("trash failed for missing: "), 1);
}

TEST_F(Drop, OfSevenThousandFilesOnTrashLeavesTheDockAnswering) {
    constexpr int count = 7000;
    run();
    std::vector<fs::path> files;
    files.reserve(count);
    fs::create_directory(desktop().home().folder() / "many");
    for (int i = 0; i < count; ++i)
        files.push_back(makeFile("many/file " + std::to_string(i)));
    AnswerTimes answers{desktop().display(),
                        desktop().docks().on(desktop().displayIDOf("right")).window,
                        desktop().vireline().pid()};
    auto slowest = answers.ask();
    const auto ask = [&] { slowest = std::max(slowest, answers.ask()); };

    FileDrag drag{desktop(), {urlList(files)}};
    EXPECT_EQ(drag.moveTo(tile(trash)), "accepted XdndActionCopy");
    ask();
    EXPECT_EQ(drag.drop(), taken);
    constexpr std::chrono::seconds whileBusy{90};
    EXPECT_TRUE(eventually(
        [&] {
            ask();
            return fs::is_empty(desktop().home().folder() / "many");
        },
        whileBusy));

    EXPECT_TRUE(logs("trashed file ", count));
    EXPECT_EQ(desktop().log().count("trashed file "), count);
    EXPECT_EQ(desktop().log().count("trash failed"), 0);
    constexpr AnswerTimes::Milliseconds limit{50};
    EXPECT_LE(slowest, limit) << slowest.count();
    RecordProperty("slowest answer in ms", std::to_string(slowest.count()));
}

TEST_F(Drop, OnDownloadsFallsThroughToTheStrip) {
    run();
    const auto file = makeFile("report.pdf");
    EXPECT_EQ(drop({urlList({file, thirdApp()})}, downloads), taken);
    EXPECT_TRUE(logs("manual add " + apps[2].id));
    EXPECT_TRUE(fs::is_empty(desktop().home().downloads()));
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(Drop, OfPlainTextWithPathsWorksToo) {
    run();
    const auto first = makeFile("first");
    const auto second = makeFile("second one");
    const std::string text = first.string() + '\n' + urlList({second});
    EXPECT_EQ(drop({text, "text/plain"}, trash), taken);
    EXPECT_TRUE(logs("trashed first"));
    EXPECT_TRUE(logs("trashed second one"));
}

TEST_F(Drop, IsTakenAsTheMoveThatASourceInsistsOn) {
    run();
    EXPECT_EQ(drop({urlList({makeFile("first")}), "text/uri-list", "XdndActionMove"}, trash),
              "done XdndActionMove");
    EXPECT_TRUE(logs("trashed first"));
}

TEST_F(Drop, IsTakenAsACopyWhereTheSourceWouldAsk) {
    run();
    EXPECT_EQ(drop({urlList({makeFile("first")}), "text/uri-list", "XdndActionAsk"}, trash), taken);
    EXPECT_TRUE(logs("trashed first"));
}

TEST_F(Drop, IsRefusedInTimeForURLsThatAreNoFilesHere) {
    run();
    for (const auto* url : {"https://example.org/a\r\n", "file://elsewhere/a\r\n",
                            "sftp://elsewhere/a\r\n", "mailto:ada@example.org\r\n"}) {
        FileDrag drag{desktop(), {url}};
        EXPECT_EQ(drag.moveTo(tile(trash)), "refused") << url;
        EXPECT_EQ(drag.moveTo(tile(0)), "refused") << url;
        EXPECT_EQ(drag.drop(), "not dropped") << url;
    }
    EXPECT_EQ(desktop().log().count("trash"), 0);
    EXPECT_EQ(desktop().log().count("manual"), 0);
}

TEST_F(Drop, IsRefusedInTimeForAnythingElse) {
    run();
    FileDrag drag{desktop(), {"Dear Ada,\nas to /etc/passwd", "text/plain"}};
    EXPECT_EQ(drag.moveTo(tile(trash)), "refused");
    EXPECT_EQ(drag.drop(), "not dropped");
    FileDrag picture{desktop(), {"\x89PNG", "image/png"}};
    EXPECT_EQ(picture.moveTo(tile(trash)), "refused");
    EXPECT_EQ(picture.drop(), "not dropped");
}

TEST_F(Drop, FindsNoTargetAboveTheStrip) {
    run();
    FileDrag drag{desktop(), {urlList({makeFile("first")})}};
    const auto frame = plannedDock("right", tiles(2)).frame;
    EXPECT_TRUE(drag.moveAway({frame.center().x, frame.y + 3}));
    EXPECT_EQ(drag.drop(), "not dropped");
}

TEST_F(Drop, LetsTheTrashGrowWhileFilesAreOverIt) {
    run();
    const auto atRest = trashPicture();
    FileDrag drag{desktop(), {urlList({makeFile("first")})}};
    EXPECT_EQ(drag.moveTo(tile(trash)), "accepted XdndActionCopy");
    EXPECT_TRUE(eventually([&] { return trashPicture() != atRest; }));
    EXPECT_EQ(drag.moveTo(tile(0)), "accepted XdndActionCopy");
    EXPECT_TRUE(eventually([&] { return trashPicture() == atRest; }));
}

TEST_F(Drop, IsOffOnceTheSourceDies) {
    run();
    const auto atRest = trashPicture();
    const auto file = makeFile("first");
    FileDrag drag{desktop(), {urlList({file})}};
    EXPECT_EQ(drag.moveTo(tile(trash)), "accepted XdndActionCopy");
    ASSERT_TRUE(eventually([&] { return trashPicture() != atRest; }));
    drag.program().signal(SIGKILL);
    EXPECT_TRUE(eventually([&] { return trashPicture() == atRest; }));
    desktop().pointer().release(Pointer::Button::primary);
    EXPECT_EQ(drop({urlList({file})}, trash), taken);
    EXPECT_TRUE(logs("trashed first"));
}

TEST_F(Drop, LeavesTheDockAliveWhileTheSourceHangs) {
    run();
    DragSource silent{desktop().display()};
    silent.contents = {{"text/uri-list", ""}};
    silent.answer = DragSource::Answer::nothing;
    silent.enter(desktop().docks().on(desktop().displayIDOf("right")).window);
    silent.move(tile(trash));
    ASSERT_TRUE(eventually([&] {
        silent.work();
        return silent.requests == 1;
    }));
    desktop().home().pin(std::vector{apps[1]});
    EXPECT_TRUE(docksSettle(tiles(1)));
    EXPECT_EQ(desktop().log().count("drag refused"), 0);
}

}
}
