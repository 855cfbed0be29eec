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

TEST(FileURL, RejectsWhatIsNotAFileURL) {
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

TEST(FileURL, DecodesHexadecimalDigitsOfEitherCase) {
    EXPECT_EQ(FileURL::parse("file:///%4a%4A%6f%6F%61%39")->path(), "/JJooa9");
}

TEST(FileURL, RefusesEscapesThatAreNotTwoHexadecimalDigits) {
    for (const char* escape : {"%/1", "%:1", "%@1", "%G1", "%`1", "%g1", "%1/", "%1:", "%1@", "%1G",
                               "%1`", "%1g", "%", "%1"}) {
        EXPECT_FALSE(FileURL::parse(std::string{"file:///a"} + escape)) << escape;
    }
}

TEST(FileURL, DecodesTheLastByteOfAText) {
    EXPECT_EQ(FileURL::parse("file:///%41")->path(), "/A");
    EXPECT_EQ(FileURL::parse("file:///%01")->path(), "/\x01");
    EXPECT_EQ(FileURL::parse("file:///%10")->path(), "/\x10");
}

TEST(FileURL, RefusesBareControlCharactersAndSpaces) {
    EXPECT_FALSE(FileURL::parse("file:///a\x7f"));
    EXPECT_FALSE(FileURL::parse("file:///a\x1f"));
    EXPECT_FALSE(FileURL::parse("file:///a\n"));
    EXPECT_EQ(FileURL::parse("file:///a!")->path(), "/a!");
}

TEST(FileURL, LeavesOutAQueryAndAFragment) {
    EXPECT_EQ(FileURL::parse("file:///a?b")->path(), "/a");
    EXPECT_EQ(FileURL::parse("file:///a#b")->path(), "/a");
}

TEST(FileURL, EscapesWhateverMayNotStandInAPath) {
    EXPECT_EQ(FileURL::fromPath("/a b?c#d%e\x7f\x80").absoluteString(),
              "file:///a%20b%3Fc%23d%25e%7F%80");
    EXPECT_EQ(FileURL::fromPath("/-._~!$&'()*+,;=:@zZ0").absoluteString(),
              "file:///-._~!$&'()*+,;=:@zZ0");
}

TEST(FileURL, TakesTheRootAndItsChildrenApart) {
    EXPECT_EQ(FileURL::fromPath("//").path(), "/");
    EXPECT_EQ(FileURL::fromPath("/").appending("a").path(), "/a");
    EXPECT_EQ(FileURL::fromPath("/a").parent().path(), "/");
    EXPECT_EQ(FileURL::fromPath("/a").pathExtension(), "");
    EXPECT_EQ(FileURL::fromPath("/x.y/a").pathExtension(), "");
    EXPECT_EQ(FileURL::fromPath("/a.b.c").pathExtension(), "c");
}

}
}
