#include "Platform/FileURL.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

FileURL at(std::string_view path) { return FileURL::standardized(path, FileURL::root()); }

TEST(FileURL, resolvesDotsAndSlashesLexically) {
    EXPECT_EQ(at("/a/./b//c/../d/").path(), "/a/b/d");
    EXPECT_EQ(at("/../../a").path(), "/a");
    EXPECT_EQ(at("/a/..").path(), "/");
    EXPECT_EQ(at("//").path(), "/");
    EXPECT_EQ(at("/a/.../b").path(), "/a/.../b");
}

TEST(FileURL, joinsRelativePathsToItsBase) {
    EXPECT_EQ(FileURL::standardized("images/../logo.png", at("/home/me/notes")).path(),
              "/home/me/notes/logo.png");
    EXPECT_EQ(FileURL::standardized("", at("/home")).path(), "/home");
    EXPECT_EQ(FileURL::standardized("/etc", at("/home")).path(), "/etc");
    EXPECT_EQ(FileURL::standardized("a", FileURL::root()).path(), "/a");
}

TEST(FileURL, readsTheCommandLineFromTheWorkingFolder) {
    EXPECT_EQ(FileURL::fromCommandLine("/etc/").path(), "/etc");
    EXPECT_TRUE(FileURL::fromCommandLine("x").path().ends_with("/x"));
}

TEST(FileURL, keepsTheBytesOfNamesThatAreNotText) { EXPECT_EQ(at("/a/b\xFF\nc").path(), "/a/b\xFF\nc"); }

TEST(FileURL, showsItsNameRepaired) {
    EXPECT_EQ(at("/a/b\xFF.txt").lastPathComponent(), "b\uFFFD.txt");
    EXPECT_EQ(at("/a/\uFEFFb").lastPathComponent(), "\uFEFFb");
    EXPECT_EQ(at("/").lastPathComponent(), "/");
}

TEST(FileURL, knowsItsFolder) {
    EXPECT_EQ(at("/a/b").deletingLastPathComponent().path(), "/a");
    EXPECT_EQ(at("/a").deletingLastPathComponent().path(), "/");
    EXPECT_EQ(at("/").deletingLastPathComponent().path(), "/");
    EXPECT_EQ(at("/").appendingPathComponent("a").path(), "/a");
    EXPECT_EQ(at("/a").appendingPathComponent("b").path(), "/a/b");
}

TEST(PathExtension, isWhatFollowsTheLastDot) {
    EXPECT_EQ(pathExtension("archive.tar.gz"), "gz");
    EXPECT_EQ(pathExtension("main.TSX"), "TSX");
    EXPECT_EQ(pathExtension("folder.app/"), "app");
}

TEST(PathExtension, isEmptyWithoutADotInsideTheName) {
    EXPECT_EQ(pathExtension("README"), "");
    EXPECT_EQ(pathExtension(".gitignore"), "");
    EXPECT_EQ(pathExtension("odd."), "");
    EXPECT_EQ(pathExtension(""), "");
    EXPECT_EQ(pathExtension("."), "");
}

TEST(PathExtension, isEmptyWhenTheStemIsDots) {
    EXPECT_EQ(pathExtension("..txt"), "");
    EXPECT_EQ(pathExtension("...txt"), "");
    EXPECT_EQ(pathExtension("....txt"), "txt");
}

TEST(PathExtension, holdsNoSpaceAndNoBidirectionalControl) {
    EXPECT_EQ(pathExtension("Mr. Smith"), "");
    EXPECT_EQ(pathExtension("invoice.\u202Etxt"), "");
    EXPECT_EQ(pathExtension("invoice.tx\u2069t"), "");
    EXPECT_EQ(pathExtension("invoice\u202E.txt"), "txt");
    EXPECT_EQ(pathExtension("invoice.été"), "été");
}

} // namespace
} // namespace quillmar
