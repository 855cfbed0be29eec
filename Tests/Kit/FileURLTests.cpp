#include "Foundation/FileURL.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

TEST(FileURL, ReadsAnAbsoluteFileURLAndDropsTheTrailingSlash) {
    EXPECT_EQ(FileURL::parse("file:///Applications/Mail.app/")->path(), "/Applications/Mail.app");
    EXPECT_EQ(FileURL::parse("FILE://localhost/a")->path(), "/a");
    EXPECT_EQ(FileURL::parse("file:/a/b")->path(), "/a/b");
}

TEST(FileURL, DecodesAndEncodesPercentEscapes) {
    const auto url = FileURL::parse("file:///a%20b/%C3%A9");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->path(), "/a b/é");
    EXPECT_EQ(url->absoluteString(), "file:///a%20b/%C3%A9");
}

TEST(FileURL, RefusesWhatIsNoFileURL) {
    for (const char* text :
         {"", "file:", "file://", "file://host/a", "http://example.org/a", "/a", "file:a",
          "file:///a%2", "file:///a%zz", "file:///a%00", "file:///a b", "filex:///a"}) {
        EXPECT_FALSE(FileURL::parse(text)) << text;
    }
}

TEST(FileURL, TakesPathsApart) {
    const auto url = FileURL::fromPath("/home/me/Mail.desktop");
    EXPECT_EQ(url.lastPathComponent(), "Mail.desktop");
    EXPECT_EQ(url.pathExtension(), "desktop");
    EXPECT_EQ(url.parent(), FileURL::fromPath("/home/me"));
    EXPECT_EQ(url.parent().appending("x").path(), "/home/me/x");
    EXPECT_EQ(FileURL::fromPath("/.hidden").pathExtension(), "");
    EXPECT_EQ(FileURL::fromPath("/").lastPathComponent(), "/");
    EXPECT_EQ(FileURL::fromPath("/").parent().path(), "/");
}

}
}
