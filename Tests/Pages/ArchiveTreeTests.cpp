#include "Pages/ArchiveTree.h"

#include "Tests/Helpers/ArchiveEntries.h"
#include "Tests/Helpers/Environment.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

using Strings = std::vector<std::string>;
using Entries = std::vector<ArchiveEntry>;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();

/// A finished tree together with the entries whose names it views.
struct Grown {
    explicit Grown(Entries list, std::size_t maxNodes = ArchiveLimits::maxNodes)
        : entries(std::move(list)), tree(maxNodes) {
        for (const ArchiveEntry& entry : entries) wasInserted.push_back(tree.insert(entry));
        tree.finish();
    }

    /// Paths in display order, each folder before its contents and with a slash behind it.
    Strings paths() const {
        Strings found;
        std::vector<std::pair<NodeIndex, std::string>> pending{{ArchiveTree::root, ""}};
        while (!pending.empty()) {
            const auto [index, path] = pending.back();
            pending.pop_back();
            if (index != ArchiveTree::root) found.push_back(path);
            const auto children = tree.children(index);
            for (auto child = children.rbegin(); child != children.rend(); ++child) {
                const ArchiveNode& node = tree.node(*child);
                pending.emplace_back(*child, path + std::string(node.name) + (node.isDirectory ? "/" : ""));
            }
        }
        return found;
    }

    /// The node at \p path, its components in display order ("a/b"); the root when there is none.
    const ArchiveNode& at(std::string_view path) const {
        NodeIndex current = ArchiveTree::root;
        while (!path.empty()) {
            const std::string_view name = path.substr(0, path.find('/'));
            path.remove_prefix(std::min(name.size() + 1, path.size()));
            NodeIndex next = ArchiveTree::root;
            for (const NodeIndex child : tree.children(current))
                if (tree.node(child).name == name) next = child;
            if (next == ArchiveTree::root) return tree.node(ArchiveTree::root);
            current = next;
        }
        return tree.node(current);
    }

    Entries entries;
    ArchiveTree tree;
    std::vector<bool> wasInserted;
};

class ArchiveTreeTest : public testing::Test {
    ScopedEnvironment english_{{"LC_ALL", "C"}};
};

// Inserting

TEST_F(ArchiveTreeTest, makesTheFoldersThatAPathNames) {
    const Grown grown({file("a/b/c.txt", 5)});
    EXPECT_EQ(grown.paths(), (Strings{"a/", "a/b/", "a/b/c.txt"}));
    EXPECT_EQ(grown.tree.stats(), (ArchiveStats{.files = 1, .folders = 2, .size = 5}));
    EXPECT_EQ(grown.at("a").modified, std::nullopt);
    EXPECT_EQ(grown.at("a/b").modified, std::nullopt);
}

TEST_F(ArchiveTreeTest, keepsOneFolderWhetherItComesBeforeOrAfterItsContents) {
    ArchiveEntry directory = folder("dir");
    directory.size = 4'096;
    directory.modified = 99;
    for (const Entries& entries :
         {Entries{directory, file("dir/x", 3)}, Entries{file("dir/x", 3), directory}}) {
        const Grown grown(entries);
        EXPECT_EQ(grown.paths(), (Strings{"dir/", "dir/x"}));
        EXPECT_EQ(grown.at("dir").modified, 99);
        EXPECT_EQ(grown.at("dir").size, 3);
    }
}

TEST_F(ArchiveTreeTest, turnsAFileIntoAFolderWhenAPathLeadsThroughIt) {
    const Grown grown({file("x", 7), file("x/y", 2)});
    EXPECT_EQ(grown.paths(), (Strings{"x/", "x/y"}));
    EXPECT_EQ(grown.at("x").size, 2);
}

TEST_F(ArchiveTreeTest, neverTurnsAFolderBackIntoAFile) {
    EXPECT_EQ(Grown({file("x/y", 2), file("x", 7)}).paths(), (Strings{"x/", "x/y"}));
    EXPECT_EQ(Grown({folder("x"), file("x", 7)}).paths(), Strings{"x/"});
}

TEST_F(ArchiveTreeTest, makesAFolderOfAFileThatComesAgainAsFolder) {
    EXPECT_EQ(Grown({file("x", 7), folder("x")}).paths(), Strings{"x/"});
}

TEST_F(ArchiveTreeTest, doesNotCountSlashes) {
    const Grown grown({file("/abs/path", 1), file("abs//path", 2), file("abs/path/", 3), file("abs/path", 4)});
    EXPECT_EQ(grown.paths(), (Strings{"abs/", "abs/path"}));
    EXPECT_EQ(grown.at("abs/path").size, 4);
}

TEST_F(ArchiveTreeTest, passesOverPathsWithoutComponents) {
    const Grown grown({file("", 1), file("/", 2), folder("///")});
    EXPECT_EQ(grown.paths(), Strings{});
    EXPECT_EQ(grown.wasInserted, (std::vector<bool>{true, true, true}));
    EXPECT_EQ(grown.tree.stats(), ArchiveStats{});
}

TEST_F(ArchiveTreeTest, takesDotsForNames) {
    EXPECT_EQ(Grown({file("./a", 1), file("../b", 1), file("a/../b", 1)}).paths(),
              (Strings{"./", "./a", "../", "../b", "a/", "a/../", "a/../b"}));
}

TEST_F(ArchiveTreeTest, takesTheValuesOfTheLastEntryOfAPath) {
    ArchiveEntry first = file("x", 1);
    first.compressedSize = 10;
    first.modified = 100;
    first.isEncrypted = true;
    first.isLink = true;
    const Grown grown({first, file("y", 3), file("x", 2)});
    EXPECT_EQ(grown.paths(), (Strings{"x", "y"}));
    EXPECT_EQ(grown.at("x").size, 2);
    EXPECT_EQ(grown.at("x").compressedSize, 0);
    EXPECT_EQ(grown.at("x").modified, 100); // the last date given
    EXPECT_FALSE(grown.at("x").isEncrypted);
    EXPECT_FALSE(grown.at("x").isLink);
}

TEST_F(ArchiveTreeTest, replacesADateByALaterOne) {
    ArchiveEntry first = file("x", 1);
    first.modified = 100;
    ArchiveEntry second = file("x", 1);
    second.modified = 50;
    EXPECT_EQ(Grown({first, second}).at("x").modified, 50);
}

TEST_F(ArchiveTreeTest, keepsTheLinkMarkOfAFolder) {
    ArchiveEntry link = file("x", 0);
    link.isLink = true;
    EXPECT_TRUE(Grown({link, file("x/y", 1)}).at("x").isLink);
}

TEST_F(ArchiveTreeTest, tellsUpperFromLowerCase) {
    EXPECT_EQ(Grown({file("a", 1), file("A", 1)}).paths(), (Strings{"a", "A"}));
}

TEST_F(ArchiveTreeTest, takesCanonicallyEquivalentNamesForOne) {
    const Grown grown({file("cafe\u0301/a", 1), file("café/b", 1), file("café", 1)});
    EXPECT_EQ(grown.paths(), (Strings{"cafe\u0301/", "cafe\u0301/a", "cafe\u0301/b"})); // as first written
    const Grown composedFirst({file("café/a", 1), file("cafe\u0301/b", 1)});
    EXPECT_EQ(composedFirst.paths(), (Strings{"café/", "café/a", "café/b"}));
}

TEST_F(ArchiveTreeTest, findsManyDecomposedNamesAgain) {
    Entries entries;
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 2'000; ++i)
            entries.push_back(file((round == 0 ? "e\u0301" : "é") + std::to_string(i), 1));
    EXPECT_EQ(Grown(std::move(entries)).tree.stats().files, 2'000);
}

TEST_F(ArchiveTreeTest, tellsNamesApartThatOnlyLookAlike) {
    EXPECT_EQ(Grown({file("ﬁ", 1), file("fi", 1), file("Ａ", 1), file("A", 1)}).tree.stats().files, 4);
}

TEST_F(ArchiveTreeTest, tellsNamesApartThatDifferAfterACommonStart) {
    const Grown grown({file("ab/c", 1), file("a/c", 1), file("abc", 1), file("ab/cd", 1), file("ab", 1)});
    EXPECT_EQ(grown.paths(), (Strings{"a/", "a/c", "ab/", "ab/c", "ab/cd", "abc"}));
}

TEST_F(ArchiveTreeTest, takesAPathAgainThatBeginsAsTheLastOne) {
    const Grown grown({file("a/b/c", 1), file("a/b", 1), file("a//b/d", 1), file("a", 1), file("a/b/c/e", 1)});
    EXPECT_EQ(grown.paths(), (Strings{"a/", "a/b/", "a/b/c/", "a/b/c/e", "a/b/d"}));
}

// Order

TEST_F(ArchiveTreeTest, listsFoldersFirstEachGroupInNaturalOrder) {
    const Grown grown({file("B", 1), file("a", 1), file("file10", 1), file("file2", 1), folder("z")});
    EXPECT_EQ(grown.paths(), (Strings{"z/", "a", "B", "file2", "file10"}));
}

TEST_F(ArchiveTreeTest, keepsTheOrderOfNamesThatCompareEqual) {
    EXPECT_EQ(Grown({file("a01", 1), file("a1", 1), file("a001", 1)}).paths(), (Strings{"a01", "a1", "a001"}));
}

TEST_F(ArchiveTreeTest, ordersAFileThatBecameAFolderAmongTheFolders) {
    EXPECT_EQ(Grown({file("z", 1), file("a", 1), file("z/x", 1)}).paths(), (Strings{"z/", "z/x", "a"}));
}

// Sums

TEST_F(ArchiveTreeTest, sumsUpWhatIsInAFolder) {
    ArchiveEntry a = file("dir/sub/a", 10);
    a.compressedSize = 4;
    ArchiveEntry b = file("dir/b", 20);
    b.compressedSize = 5;
    const Grown grown({a, b, file("c", 3)});
    EXPECT_EQ(grown.at("dir/sub").size, 10);
    EXPECT_EQ(grown.at("dir").size, 30);
    EXPECT_EQ(grown.at("dir").compressedSize, 9);
    EXPECT_EQ(grown.tree.stats(), (ArchiveStats{.files = 3, .folders = 2, .size = 33, .compressed = 9}));
}

TEST_F(ArchiveTreeTest, sumsStopAtTheLargestNumber) {
    ArchiveEntry a = file("dir/a", largest);
    a.compressedSize = largest;
    ArchiveEntry b = file("dir/b.c", largest);
    b.compressedSize = 1;
    const Grown grown({a, b, file("dir/c.c", 2)});
    EXPECT_EQ(grown.at("dir").size, largest);
    EXPECT_EQ(grown.tree.stats().size, largest);
    EXPECT_EQ(grown.tree.stats().compressed, largest);
    for (const auto& part : grown.tree.breakdown()) EXPECT_EQ(part.size, largest);
}

TEST_F(ArchiveTreeTest, sumsOfAnEmptyFolderAreZeroWhateverItsEntrySays) {
    ArchiveEntry directory = folder("dir");
    directory.size = 4'096;
    directory.compressedSize = 17;
    EXPECT_EQ(Grown({directory}).tree.stats(), (ArchiveStats{.folders = 1}));
}

TEST_F(ArchiveTreeTest, countsDescendants) {
    const Grown grown({file("a/b/c", 1), file("a/b/d", 1), file("a/e", 1), file("f", 1)});
    EXPECT_EQ(grown.at("a/b").descendantCount, 2);
    EXPECT_EQ(grown.at("a").descendantCount, 4);
    EXPECT_EQ(grown.at("f").descendantCount, 0);
    EXPECT_EQ(grown.tree.node(ArchiveTree::root).descendantCount, 6);
}

TEST_F(ArchiveTreeTest, anEncryptedFileMarksEveryFolderAboveIt) {
    ArchiveEntry secret = file("a/b/secret", 1);
    secret.isEncrypted = true;
    const Grown grown({secret, file("a/open/x", 1)});
    EXPECT_TRUE(grown.at("a/b").isEncrypted);
    EXPECT_TRUE(grown.at("a").isEncrypted);
    EXPECT_FALSE(grown.at("a/open").isEncrypted);
    EXPECT_TRUE(grown.tree.stats().encrypted);
}

TEST_F(ArchiveTreeTest, anEncryptedFolderOfOpenFilesIsOpen) {
    ArchiveEntry directory = folder("dir");
    directory.isEncrypted = true;
    const Grown grown({file("dir/x", 1), directory});
    EXPECT_FALSE(grown.at("dir").isEncrypted);
    EXPECT_FALSE(grown.tree.stats().encrypted);
}

// Breakdown

using Parts = std::vector<CompositionPart>;

TEST_F(ArchiveTreeTest, breakdownPutsTheLargestKindFirst) {
    const Grown grown({file("a.c", 10), file("b.png", 50), file("d/c.c", 20), file("e.txt", 30)});
    EXPECT_EQ(grown.tree.breakdown(), (Parts{{FileKind::images, 50, 1},
                                             {FileKind::documents, 30, 1}, // before code, as the kinds stand
                                             {FileKind::code, 30, 2}}));
}

TEST_F(ArchiveTreeTest, breakdownTakesAnApplicationForOneItem) {
    Entries entries;
    for (int i = 0; i < 40; ++i) entries.push_back(file("Tool.app/" + std::to_string(i) + ".png", 2));
    const Grown grown(std::move(entries));
    EXPECT_EQ(grown.tree.breakdown(), (Parts{{FileKind::apps, 80, 1}}));
    EXPECT_EQ(grown.tree.stats(), (ArchiveStats{.files = 40, .folders = 1, .size = 80}));
}

TEST_F(ArchiveTreeTest, breakdownDoesNotLookIntoApplicationsAtAnyDepth) {
    const Grown grown({file("a/Tool.app/Contents/Inner.app/x.png", 2), file("a/y.png", 1)});
    EXPECT_EQ(grown.tree.breakdown(), (Parts{{FileKind::apps, 2, 1}, {FileKind::images, 1, 1}}));
}

TEST_F(ArchiveTreeTest, breakdownKnowsApplicationsByTheirExactSuffix) {
    EXPECT_EQ(Grown({file("Tool.APP/x.png", 2)}).tree.breakdown(), (Parts{{FileKind::images, 2, 1}}));
    EXPECT_EQ(Grown({file("Toolapp/x.png", 2)}).tree.breakdown(), (Parts{{FileKind::images, 2, 1}}));
    // The name ends so, but has no extension.
    EXPECT_EQ(Grown({file(".app/x.png", 2)}).tree.breakdown(), (Parts{{FileKind::other, 2, 1}}));
}

TEST_F(ArchiveTreeTest, breakdownCountsUnknownFilesAsOther) {
    const Grown grown({file("README", 3), file("a.nobodyknows", 4), file("b.", 1), file(".png", 1)});
    EXPECT_EQ(grown.tree.breakdown(), (Parts{{FileKind::other, 9, 4}}));
}

TEST_F(ArchiveTreeTest, breakdownTakesExtensionsInAnyCase) {
    EXPECT_EQ(Grown({file("a.PNG", 1), file("b.png", 1)}).tree.breakdown(), (Parts{{FileKind::images, 2, 2}}));
}

TEST_F(ArchiveTreeTest, breakdownCountsEmptyFilesAndNoFolders) {
    EXPECT_EQ(Grown({file("a.png", 0), folder("d")}).tree.breakdown(), (Parts{{FileKind::images, 0, 1}}));
    EXPECT_EQ(Grown({folder("d")}).tree.breakdown(), Parts{});
    EXPECT_EQ(Grown(Entries{}).tree.breakdown(), Parts{});
}

TEST_F(ArchiveTreeTest, breakdownDoesNotAskForCompressedSizes) {
    ArchiveEntry entry = file("a.png", 5);
    entry.compressedSize = 500;
    EXPECT_EQ(Grown({entry}).tree.breakdown(), (Parts{{FileKind::images, 5, 1}}));
}

// Limits

TEST_F(ArchiveTreeTest, refusesWhatWouldExceedItsNodes) {
    const Grown grown({file("a/b", 1), file("c", 1), file("d", 1)}, 3);
    EXPECT_EQ(grown.wasInserted, (std::vector<bool>{true, true, false}));
    EXPECT_EQ(grown.paths(), (Strings{"a/", "a/b", "c"}));
}

TEST_F(ArchiveTreeTest, aRefusedEntryLeavesNoTrace) {
    const Grown grown({file("x", 7), file("x/a/b/c", 1)}, 3);
    EXPECT_EQ(grown.wasInserted, (std::vector<bool>{true, false}));
    EXPECT_EQ(grown.paths(), Strings{"x"}); // still a file, and no part of the path
    EXPECT_EQ(grown.at("x").size, 7);
}

TEST_F(ArchiveTreeTest, aFullTreeStillTakesEntriesOfItsPaths) {
    const Grown grown({file("a/b", 1), file("c", 1), file("a/b", 5), folder("a"), file("c/d", 1)}, 3);
    EXPECT_EQ(grown.wasInserted, (std::vector<bool>{true, true, true, true, false}));
    EXPECT_EQ(grown.at("a/b").size, 5);
}

TEST_F(ArchiveTreeTest, takesNoNodesAtAllWhenItsLimitIsZero) {
    EXPECT_EQ(Grown({file("a", 1), file("/", 1)}, 0).wasInserted, (std::vector<bool>{false, true}));
}

TEST_F(ArchiveTreeTest, goesOnAfterARefusedPathWithTheSameStart) {
    const Grown grown({file("a/b/c", 1), file("a/b/d/e", 1), file("a/b/f", 1)}, 4);
    EXPECT_EQ(grown.wasInserted, (std::vector<bool>{true, false, true}));
    EXPECT_EQ(grown.paths(), (Strings{"a/", "a/b/", "a/b/c", "a/b/f"}));
}

// Depth

TEST_F(ArchiveTreeTest, takesPathsOfAMillionComponents) {
    std::string deep;
    for (int i = 0; i < 999'999; ++i) deep += "d/";
    const Grown grown({file(deep + "secret.png", 5)});
    EXPECT_EQ(grown.tree.stats(), (ArchiveStats{.files = 1, .folders = 999'999, .size = 5}));
    EXPECT_EQ(grown.tree.breakdown(), (Parts{{FileKind::images, 5, 1}}));
    EXPECT_EQ(grown.tree.node(ArchiveTree::root).descendantCount, 1'000'000);
    EXPECT_EQ(Grown({file("d/" + deep + "f", 5)}).wasInserted, std::vector<bool>{false});
}

TEST_F(ArchiveTreeTest, takesManyDeepPaths) {
    std::string deep;
    for (int i = 0; i < 30'000; ++i) deep += "d/";
    Entries entries;
    for (int i = 0; i < 100; ++i)
        entries.push_back(file((i % 2 == 0 ? "a/" : "b/") + deep + std::to_string(i), 1));
    EXPECT_EQ(Grown(std::move(entries)).tree.stats(),
              (ArchiveStats{.files = 100, .folders = 60'002, .size = 100}));
}

TEST_F(ArchiveTreeTest, takesNamesOfAMillionBytes) {
    const std::string name(1'000'000, 'n');
    EXPECT_EQ(Grown({file(name + "/a", 1), file(name + "/b", 1), file(name + "é", 1)}).tree.stats(),
              (ArchiveStats{.files = 3, .folders = 1, .size = 3}));
}

} // namespace
} // namespace quillmar
