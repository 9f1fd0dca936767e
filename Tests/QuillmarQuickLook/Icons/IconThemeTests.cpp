#include "QuillmarQuickLook/Icons/IconTheme.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_literals;
using Strings = std::vector<std::string>;
using Type = IconDirectory::Type;

Strings pathsOf(const IconTheme& theme) {
    Strings paths;
    for (const IconDirectory& directory : theme.directories) paths.push_back(directory.path);
    return paths;
}

/// The paths of an index that lists \p directories, all of 48 pixels.
Strings pathsOfListed(const Strings& directories) {
    std::string index = "[Icon Theme]\nDirectories=";
    for (const std::string& path : directories) index += path + ',';
    index += '\n';
    for (const std::string& path : directories) index += "[" + path + "]\nSize=48\n";
    return pathsOf(IconTheme::parse(index));
}

/// The one directory of an index, described by \p lines.
IconDirectory directory(const std::string& lines) {
    const IconTheme theme = IconTheme::parse("[Icon Theme]\nDirectories=a\n[a]\n" + lines);
    return theme.directories.size() == 1 ? theme.directories.front() : IconDirectory{.path = "none"};
}

TEST(IconTheme, hasItsParentsInTheirOrder) {
    EXPECT_EQ(IconTheme::parse("[Icon Theme]\nInherits=b, a ,,c,\n").inherits, (Strings{"b", "a", "c"}));
}

TEST(IconTheme, hasTheFoldersThatItsIndexListsAndDescribes) {
    const IconTheme theme = IconTheme::parse("[Icon Theme]\n"
                                             "Directories=16/apps, scalable/apps ,,undescribed\n"
                                             "ScaledDirectories=16@2/apps\n"
                                             "[16/apps]\nSize=16\n"
                                             "[scalable/apps]\nSize=64\n"
                                             "[16@2/apps]\nSize=16\nScale=2\n"
                                             "[unlisted]\nSize=16\n");
    EXPECT_EQ(pathsOf(theme), (Strings{"16/apps", "scalable/apps", "16@2/apps"}));
}

TEST(IconTheme, readsAllThatIsSaidOfAFolder) {
    const IconDirectory found =
        directory("Size=64\nType=Scalable\nMinSize=16\nMaxSize=256\nThreshold=5\nScale=3\n");
    EXPECT_EQ(found.path, "a");
    EXPECT_EQ(found.type, Type::scalable);
    EXPECT_EQ(found.size, 64);
    EXPECT_EQ(found.minSize, 16);
    EXPECT_EQ(found.maxSize, 256);
    EXPECT_EQ(found.threshold, 5);
    EXPECT_EQ(found.scale, 3);
}

TEST(IconTheme, takesDefaultsForWhatIsNotSaidOfAFolder) {
    const IconDirectory found = directory("Size=48\n");
    EXPECT_EQ(found.type, Type::threshold);
    EXPECT_EQ(found.minSize, 48);
    EXPECT_EQ(found.maxSize, 48);
    EXPECT_EQ(found.threshold, 2);
    EXPECT_EQ(found.scale, 1);
}

TEST(IconTheme, knowsThreeTypes) {
    EXPECT_EQ(directory("Size=48\nType=Fixed\n").type, Type::fixed);
    EXPECT_EQ(directory("Size=48\nType=Scalable\n").type, Type::scalable);
    EXPECT_EQ(directory("Size=48\nType=Threshold\n").type, Type::threshold);
    EXPECT_EQ(directory("Size=48\nType=fixed\n").type, Type::threshold);
}

TEST(IconTheme, leavesFoldersWithoutASizeOut) {
    EXPECT_EQ(directory("Type=Fixed\n").path, "none");
    for (const auto* size :
         {"0", "-48", "48.5", "48px", "", "0x30", "4097", "2147483648", "99999999999999999999"})
        EXPECT_EQ(directory("Size="s.append(size).append("\n")).path, "none") << size;
}

TEST(IconTheme, takesDefaultsForNumbersThatAreNone) {
    for (const auto* number : {"-1", "x", "", "99999", "2147483647", "-2147483648", "99999999999999999999"}) {
        std::string lines = "Size=48\n";
        for (const auto* key : {"MinSize", "MaxSize", "Threshold", "Scale"})
            lines.append(key).append("=").append(number).append("\n");
        const IconDirectory found = directory(lines);
        EXPECT_EQ(found.minSize, 48) << number;
        EXPECT_EQ(found.maxSize, 48) << number;
        EXPECT_EQ(found.threshold, 2) << number;
        EXPECT_EQ(found.scale, 1) << number;
    }
}

TEST(IconTheme, takesAScaleOfZeroForOne) { EXPECT_EQ(directory("Size=48\nScale=0\n").scale, 1); }

TEST(IconTheme, leavesFoldersThatLeadOutOfItOut) {
    EXPECT_EQ(pathsOfListed({"..", "../other", "a/../..", "a/..", "/usr/share", "/", "a/../b"}), Strings());
    EXPECT_EQ(pathsOfListed({"a..b", "...", "..a/b", ".", "a/./b"}),
              (Strings{"a..b", "...", "..a/b", ".", "a/./b"}));
}

TEST(IconTheme, keepsABoundedNumberOfFolders) {
    std::string list;
    std::string groups;
    for (std::size_t i = 0; i < IconTheme::maxDirectories + 10; ++i) {
        const std::string path = std::to_string(i);
        list += path + ',';
        groups += "[" + path + "]\nSize=48\n";
    }
    const IconTheme theme = IconTheme::parse("[Icon Theme]\nDirectories=" + list + "\n" + groups);
    ASSERT_EQ(theme.directories.size(), IconTheme::maxDirectories);
    EXPECT_EQ(theme.directories.front().path, "0");
}

TEST(IconTheme, ofOtherBytesIsEmpty) {
    for (const auto& index : {""s, "\0\0\0"s, "\x89PNG\r\n\x1A\n"s, "\xFF\xFE[\0I\0"s, "[Icon Theme"s,
                              "[icon theme]\nDirectories=a\n[a]\nSize=48\n"s}) {
        EXPECT_TRUE(IconTheme::parse(index).directories.empty());
        EXPECT_TRUE(IconTheme::parse(index).inherits.empty());
    }
}

TEST(IconTheme, readsEachCutOfItsIndex) {
    const std::string index =
        "[Icon Theme]\r\nInherits=x,y\r\nDirectories=a,b\r\n[a]\r\nSize=16\r\nType=Fixed\r\n"
        "[b]\r\nSize=32\r\nScale=2\r\n";
    for (std::size_t length = 0; length <= index.size(); ++length)
        EXPECT_LE(IconTheme::parse(index.substr(0, length)).directories.size(), 2U);
    EXPECT_EQ(pathsOf(IconTheme::parse(index)), (Strings{"a", "b"}));
}

TEST(IconDirectory, ofAFixedSizeIsMeantForThatAlone) {
    const IconDirectory fixed{
        .path = "a", .type = Type::fixed, .size = 48, .minSize = 16, .maxSize = 256, .threshold = 9};
    EXPECT_EQ(fixed.distance(48), 0);
    EXPECT_EQ(fixed.distance(47), 1);
    EXPECT_EQ(fixed.distance(128), 80);
}

TEST(IconDirectory, thatCanBeScaledIsMeantForAllFromItsSmallestToItsLargestSize) {
    const IconDirectory scalable{
        .path = "a", .type = Type::scalable, .size = 48, .minSize = 16, .maxSize = 256, .threshold = 9};
    EXPECT_EQ(scalable.distance(16), 0);
    EXPECT_EQ(scalable.distance(256), 0);
    EXPECT_EQ(scalable.distance(15), 1);
    EXPECT_EQ(scalable.distance(258), 2);
}

TEST(IconDirectory, withAThresholdIsMeantForSizesNearItsOwn) {
    const IconDirectory near{
        .path = "a", .type = Type::threshold, .size = 48, .minSize = 1, .maxSize = 512, .threshold = 2};
    EXPECT_EQ(near.distance(46), 0);
    EXPECT_EQ(near.distance(50), 0);
    EXPECT_EQ(near.distance(45), 1);
    EXPECT_EQ(near.distance(128), 78);
}

TEST(IconDirectory, countsPixelsAndNotItsUnits) {
    const IconDirectory fixed{.path = "a", .type = Type::fixed, .size = 64, .scale = 2};
    EXPECT_EQ(fixed.distance(128), 0);
    EXPECT_EQ(fixed.distance(64), 64);
    const IconDirectory scalable{
        .path = "a", .type = Type::scalable, .size = 32, .minSize = 16, .maxSize = 64, .scale = 2};
    EXPECT_EQ(scalable.distance(130), 2);
    const IconDirectory near{.path = "a", .type = Type::threshold, .size = 60, .threshold = 2, .scale = 2};
    EXPECT_EQ(near.distance(124), 0);
    EXPECT_EQ(near.distance(128), 4);
}

TEST(IconDirectory, isSmallerThanWhatItsLargestIconsHaveToBeEnlargedTo) {
    const IconDirectory fixed{.path = "a", .type = Type::fixed, .size = 64, .scale = 2};
    EXPECT_FALSE(fixed.isSmallerThan(128));
    EXPECT_TRUE(fixed.isSmallerThan(129));
    const IconDirectory scalable{
        .path = "a", .type = Type::scalable, .size = 16, .minSize = 16, .maxSize = 256};
    EXPECT_FALSE(scalable.isSmallerThan(256));
    EXPECT_TRUE(scalable.isSmallerThan(257));
}

TEST(IconDirectory, withTheLargestNumbersThereAreHasADistance) {
    const IconDirectory found =
        directory("Size=4096\nType=Threshold\nMinSize=4096\nMaxSize=0\nThreshold=4096\nScale=8\n");
    EXPECT_EQ(found.distance(65'537), 1);
    EXPECT_EQ(found.distance(0), 0);
}

} // namespace
} // namespace quillmar
