#include "QuillmarQuickLook/Icons/FileMetadata.h"

#include "Tests/Helpers/MetadataTree.h"

#include <charconv>
#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view key = "custom-icon";

Data bytes(std::string_view hex) {
    Data data;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        unsigned byte = 0;
        std::from_chars(hex.data() + i, hex.data() + i + 2, byte, 16);
        data += static_cast<char>(byte);
    }
    return data;
}

/// What gvfs 1.50 wrote of a home folder with the icon's name "my-home", a.txt (an icon and a list of two
/// emblems), docs ("folder-red"), docs/b.txt and docs/sub/c.txt.
Data writtenTree() {
    return bytes("da1a6d657461010000000000af4c05920000005800000020000000006b0253e3"
                 "0000000300000041000000300000004d637573746f6d2d69636f6e2d6e616d65"
                 "00637573746f6d2d69636f6e00656d626c656d7300000000000000680000006c"
                 "000000f46b0253e42f00000000000002000000900000009c0000010800000001"
                 "00000096000000a00000011c00000001612e74787400646f6373000000000000"
                 "00000002000000c8000000d00000015800000001000000c4000000d400000164"
                 "0000000073756200622e7478740000000000000000000001000000e8000000f0"
                 "0000017800000001632e74787400000000000000000000010000000100000100"
                 "6d792d686f6d650000000002000000000000013f800000020000012800000001"
                 "000000010000013400000002000001510000014d666f6c6465722d7265640066"
                 "696c653a2f2f2f612e706e670074776f006f6e65000000000000000100000000"
                 "000001680000000066696c653a2f2f2f622e706e670000000000000100000000"
                 "0000018466696c653a2f2f2f63253230632e706e67000000");
}

/// What it wrote into the journal then: a.txt was given another icon, docs/b.txt none; docs was moved to
/// music/papers (a copy and a removal); music was given an icon, gone.txt too, which was removed; aa.txt was
/// given a list.
Data writtenJournal() {
    Data journal = bytes("da1a6a6f75720100af4c0592000080000000000800000038967f6e0b00000000"
                         "6b025424002f612e74787400637573746f6d2d69636f6e0066696c653a2f2f2f"
                         "6e65772e706e67000000003800000030bafc0ff6000000006b025424022f646f"
                         "63732f622e74787400637573746f6d2d69636f6e00000000000000300000002c"
                         "76be3581000000006b025424032f6d757369632f706170657273002f646f6373"
                         "000000000000002c0000001c53f87273000000006b025424042f646f63730000"
                         "0000001c0000003c846b3d59000000006b025424002f6d757369630063757374"
                         "6f6d2d69636f6e2d6e616d6500666f6c6465722d6d757369630000000000003c"
                         "0000003c6b8ef067000000006b025424002f676f6e652e74787400637573746f"
                         "6d2d69636f6e0066696c653a2f2f2f676f6e652e706e67000000003c00000020"
                         "8006a8fa000000006b025424042f676f6e652e74787400000000002000000038"
                         "8c9f1aac000000006b025424012f61612e74787400637573746f6d2d69636f6e"
                         "00000000000000026c697374006f660000000038");
    journal.resize(32'768);
    return journal;
}

/// /a and /b with a child each, and texts called after them.
MetadataItem items() {
    return {"/",
            {{"custom-icon", "root"}},
            {{"a", {{"custom-icon", "a"}}, {{"x", {{"custom-icon", "ax"}, {"custom-icon-name", "name"}}}}},
             {"b", {{"annotation", "words"}, {"custom-icon", "b"}}, {{"x", {{"custom-icon", "bx"}}}}}}};
}

std::string iconIn(DataView tree, DataView journal, std::string_view path) {
    return FileMetadata::text(tree, journal, path, key).value_or("none");
}

std::string iconAfter(const std::vector<Data>& entries, std::string_view path) {
    return iconIn(metadataTree(items()), metadataJournal(entries), path);
}

TEST(FileMetadata, findsTextsByPathAndKey) {
    const Data tree = metadataTree(items());
    EXPECT_EQ(iconIn(tree, "", "/a"), "a");
    EXPECT_EQ(iconIn(tree, "", "/a/x"), "ax");
    EXPECT_EQ(iconIn(tree, "", "/b"), "b");
    EXPECT_EQ(iconIn(tree, "", "/b/x"), "bx");
    EXPECT_EQ(FileMetadata::text(tree, "", "/a/x", "custom-icon-name"), "name");
    EXPECT_EQ(FileMetadata::text(tree, "", "/b", "annotation"), "words");
}

TEST(FileMetadata, findsTheTextOfTheRoot) {
    for (const auto* path : {"/", ""}) EXPECT_EQ(iconIn(metadataTree(items()), "", path), "root") << path;
}

TEST(FileMetadata, knowsNoOtherPath) {
    for (const auto* path : {"/c", "/A", "/aa", "/x", "/a/b", "/a/x/x", "/a/xx", "/0"})
        EXPECT_EQ(iconIn(metadataTree(items()), "", path), "none") << path;
}

TEST(FileMetadata, knowsNoOtherKey) {
    for (const auto* other : {"", "custom-ico", "custom-icon-", "custom-icon-name", "emblems", "~"})
        EXPECT_FALSE(FileMetadata::text(metadataTree(items()), "", "/a", other)) << other;
}

TEST(FileMetadata, findsEachOfManyItems) {
    MetadataItem root{"/", {}};
    for (int i = 100; i < 400; ++i)
        root.children.push_back({std::to_string(i), {{"custom-icon", std::to_string(-i)}}});
    const Data tree = metadataTree(root);
    for (int i = 100; i < 400; ++i) {
        const std::string path = '/' + std::to_string(i);
        EXPECT_EQ(iconIn(tree, "", path), std::to_string(-i));
    }
}

TEST(FileMetadata, namesAreBytesInTheirOrder) {
    const Data tree =
        metadataTree({"/", {}, {{"z", {{"custom-icon", "z"}}}, {"\xC3\xA9", {{"custom-icon", "e"}}}}});
    EXPECT_EQ(iconIn(tree, "", "/z"), "z");
    EXPECT_EQ(iconIn(tree, "", "/\xC3\xA9"), "e");
}

TEST(FileMetadata, readsWhatGvfsWrites) {
    const Data tree = writtenTree();
    EXPECT_EQ(FileMetadata::text(tree, "", "/", "custom-icon-name"), "my-home");
    EXPECT_EQ(iconIn(tree, "", "/a.txt"), "file:///a.png");
    EXPECT_EQ(FileMetadata::text(tree, "", "/docs", "custom-icon-name"), "folder-red");
    EXPECT_EQ(iconIn(tree, "", "/docs/b.txt"), "file:///b.png");
    EXPECT_EQ(iconIn(tree, "", "/docs/sub/c.txt"), "file:///c%20c.png");
    EXPECT_EQ(iconIn(tree, "", "/docs/sub"), "none");
}

TEST(FileMetadata, readsTheJournalThatGvfsWrites) {
    const Data tree = writtenTree();
    const Data journal = writtenJournal();
    EXPECT_EQ(FileMetadata::text(tree, journal, "/", "custom-icon-name"), "my-home");
    EXPECT_EQ(iconIn(tree, journal, "/a.txt"), "file:///new.png");
    EXPECT_EQ(iconIn(tree, journal, "/aa.txt"), "none");
    EXPECT_EQ(iconIn(tree, journal, "/gone.txt"), "none");
    EXPECT_EQ(FileMetadata::text(tree, journal, "/docs", "custom-icon-name"), std::nullopt);
    EXPECT_EQ(iconIn(tree, journal, "/docs/sub/c.txt"), "none");
    EXPECT_EQ(FileMetadata::text(tree, journal, "/music", "custom-icon-name"), "folder-music");
    EXPECT_EQ(FileMetadata::text(tree, journal, "/music/papers", "custom-icon-name"), "folder-red");
    EXPECT_EQ(iconIn(tree, journal, "/music/papers/b.txt"), "none");
    EXPECT_EQ(iconIn(tree, journal, "/music/papers/sub/c.txt"), "file:///c%20c.png");
}

TEST(FileMetadata, holdsListsThatAreNoText) {
    EXPECT_FALSE(FileMetadata::text(writtenTree(), "", "/a.txt", "emblems"));
}

TEST(FileMetadata, namesTheJournalAfterTheTag) {
    EXPECT_EQ(FileMetadata::journalName(writtenTree(), "home"), "home-af4c0592.log");
    EXPECT_EQ(FileMetadata::journalName(metadataTree(items(), 0xF), "root"), "root-0000000f.log");
}

TEST(FileMetadata, isToldByItsFirstBytes) {
    Data otherVersion = metadataTree(items());
    otherVersion[6] = 2;
    for (const Data& none : {Data(), Data("\xDA\x1Ameta\1", 7), metadataTree(items()).substr(0, 31),
                             metadataTree(items()).substr(1), metadataJournal({}), otherVersion}) {
        EXPECT_EQ(iconIn(none, metadataJournal({setEntry("/a", "custom-icon", "new")}), "/a"), "none");
        EXPECT_FALSE(FileMetadata::journalName(none, "home"));
    }
}

TEST(FileMetadata, theNewestEntryWins) {
    EXPECT_EQ(iconAfter({setEntry("/a", "custom-icon", "new")}, "/a"), "new");
    EXPECT_EQ(iconAfter({setEntry("/a", "custom-icon", "new"), setEntry("/a", "custom-icon", "newer")}, "/a"),
              "newer");
    EXPECT_EQ(iconAfter({unsetEntry("/a", "custom-icon"), setEntry("/a", "custom-icon", "new")}, "/a"), "new");
    EXPECT_EQ(iconAfter({setEntry("/c", "custom-icon", "c")}, "/c"), "c");
}

TEST(FileMetadata, entriesOfOthersChangeNothing) {
    EXPECT_EQ(
        iconAfter({setEntry("/a/x", "custom-icon", "new"), setEntry("/", "custom-icon", "new"),
                   setEntry("/a", "custom-icon-name", "new"), unsetEntry("/a", "emblems"), removeEntry("/a/x"),
                   removeEntry("/aa"), copyEntry("/b", "/a/x"), copyEntry("/b", "/aa"), copyEntry("/a", "/b"),
                   journalEntry(5, {"/a", "custom-icon", "new"}), journalEntry('\xFF', {"/a"})},
                  "/a"),
        "a");
}

TEST(FileMetadata, aNameThatOnlyBeginsAlikeIsAnother) {
    const Data entry = setEntry("/ab", "custom-icon", "ab");
    EXPECT_EQ(iconAfter({entry, removeEntry("/a")}, "/ab"), "ab");
    EXPECT_EQ(iconAfter({entry, copyEntry("/b", "/a")}, "/ab"), "ab");
}

TEST(FileMetadata, anEntryTakesTheTextAway) {
    EXPECT_EQ(iconAfter({unsetEntry("/a", "custom-icon")}, "/a"), "none");
    EXPECT_EQ(iconAfter({setListEntry("/a", "custom-icon", "new")}, "/a"), "none");
    EXPECT_EQ(iconAfter({setEntry("/a", "custom-icon", "new"), unsetEntry("/a", "custom-icon")}, "/a"), "none");
}

TEST(FileMetadata, removalTakesWhatIsBelowToo) {
    for (const auto* removed : {"/a/x", "/a", "/a/", "/"})
        EXPECT_EQ(iconAfter({removeEntry(removed)}, "/a/x"), "none") << removed;
    EXPECT_EQ(iconAfter({removeEntry("/a"), setEntry("/a/x", "custom-icon", "new")}, "/a/x"), "new");
}

TEST(FileMetadata, copiesHaveWhatTheirSourceHadThen) {
    const Data copy = copyEntry("/a", "/c");
    EXPECT_EQ(iconAfter({copy}, "/c"), "a");
    EXPECT_EQ(iconAfter({copy}, "/c/x"), "ax");
    EXPECT_EQ(iconAfter({copy}, "/a/x"), "ax");
    EXPECT_EQ(iconAfter({setEntry("/a", "custom-icon", "new"), copy}, "/c"), "new");
    EXPECT_EQ(iconAfter({copy, setEntry("/a", "custom-icon", "new")}, "/c"), "a");
    EXPECT_EQ(iconAfter({copy, removeEntry("/a")}, "/c/x"), "ax");
    EXPECT_EQ(iconAfter({copy, copyEntry("/c", "/d")}, "/d/x"), "ax");
}

TEST(FileMetadata, copiesReplaceWhatWasThere) {
    EXPECT_EQ(iconAfter({copyEntry("/a", "/b")}, "/b"), "a");
    EXPECT_EQ(iconAfter({copyEntry("/nothing", "/b")}, "/b/x"), "none");
    EXPECT_EQ(iconAfter({copyEntry("/a", "/")}, "/x"), "ax");
    EXPECT_EQ(iconAfter({copyEntry("/", "/c")}, "/c/a/x"), "ax");
    EXPECT_EQ(iconAfter({copyEntry("/", "/c")}, "/c"), "root");
}

TEST(FileMetadata, ignoresTheJournalOfAnotherTree) {
    const Data entry = setEntry("/a", "custom-icon", "new");
    EXPECT_EQ(iconIn(metadataTree(items()), metadataJournal({entry}, metadataTag + 1), "/a"), "a");
}

TEST(FileMetadata, ignoresAJournalWhoseHeaderLies) {
    const Data whole = metadataJournal({setEntry("/a", "custom-icon", "new")});
    const auto iconWith = [&](std::size_t offset, DataView replacement) {
        Data journal = whole;
        return iconIn(metadataTree(items()), journal.replace(offset, replacement.size(), replacement), "/a");
    };
    EXPECT_EQ(iconWith(0, "\xDB"), "a");             // the signature
    EXPECT_EQ(iconWith(6, "\2"), "a");               // the version
    EXPECT_EQ(iconWith(12, bigEndian(32'767)), "a"); // the size of the file
    EXPECT_EQ(iconWith(12, bigEndian(0xFFFFFFFF)), "a");
    EXPECT_EQ(iconWith(16, bigEndian(0)), "a"); // the number of entries
    EXPECT_EQ(iconWith(16, bigEndian(0xFFFFFFFF)), "new");
}

TEST(FileMetadata, aJournalEndsAtTheFirstDamagedEntry) {
    const Data good = setEntry("/a", "custom-icon", "new");
    const auto iconWith = [&](std::size_t offset, DataView replacement) {
        Data damaged = unsetEntry("/x", "y");
        damaged.replace(offset, replacement.size(), replacement);
        return iconAfter({good, damaged, setEntry("/a", "custom-icon", "newest")}, "/a");
    };
    const std::size_t size = unsetEntry("/x", "y").size();
    EXPECT_EQ(iconWith(0, ""), "newest");
    EXPECT_EQ(iconWith(17, "?"), "new"); // other bytes than the checksum's
    for (const std::uint32_t length : {0U, 4U, 20U, 23U, 32'000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        EXPECT_EQ(iconWith(0, bigEndian(length)), "new") << length;
        EXPECT_EQ(iconWith(size - 4, bigEndian(length)), "new") << length;
    }
}

TEST(FileMetadata, skipsEntriesWhoseTextsDoNotEnd) {
    // Each fills its last word, so that nothing but the size stands behind it.
    for (const DataView change : {"\4///"sv, "\0/a\0custom-icon\0text"sv, "\3/a\0/b/x"sv})
        EXPECT_EQ(iconAfter({rawJournalEntry(change)}, "/a"), "a") << int{change.front()};
}

TEST(FileMetadata, skipsEntriesThatLackATextOfTheirs) {
    for (const char kind : {'\0', '\1', '\2', '\3'})
        for (const auto* path : {"/a", "/a/"}) // with none and three of the bytes that fill a word behind it
            EXPECT_EQ(iconAfter({journalEntry(kind, {path})}, "/a"), "a") << int{kind} << path;
}

TEST(FileMetadata, ignoresAJournalThatIsTooLong) {
    std::vector<Data> entries(FileMetadata::maxJournalBytes / setEntry("/a", "custom-icon", "new").size() + 1,
                              setEntry("/a", "custom-icon", "new"));
    EXPECT_EQ(iconAfter(entries, "/a"), "a");
    entries.resize(entries.size() - 2);
    EXPECT_EQ(iconAfter(entries, "/a"), "new");
}

TEST(FileMetadata, ignoresTextsThatAreTooLong) {
    const std::string longest(FileMetadata::maxTextBytes, 'x');
    EXPECT_EQ(iconIn(metadataTree({"/", {{"custom-icon", longest}}}), "", "/"), longest);
    EXPECT_EQ(iconIn(metadataTree({"/", {{"custom-icon", longest + 'x'}}}), "", "/"), "none");
    EXPECT_EQ(iconAfter({setEntry("/a", "custom-icon", longest)}, "/a"), longest);
    EXPECT_EQ(iconAfter({setEntry("/a", "custom-icon", longest + 'x')}, "/a"), "none");
}

TEST(FileMetadata, copiesIntoThemselvesEnd) {
    // Each makes the path longer by what it is called; one that no file can have is none.
    const std::vector<Data> entries(5'000, copyEntry("/a/folder/in/a/folder", "/a"));
    EXPECT_EQ(iconAfter(entries, "/a"), "none");
    EXPECT_EQ(iconAfter(std::vector<Data>(5'000, copyEntry("/a", "/a")), "/a/x"), "ax");
}

TEST(FileMetadata, aFolderThatContainsItselfIsAsDeepAsThePath) {
    Data circle = metadataTree({"/", {}, {{"a", {{"custom-icon", "a"}}}}});
    const std::size_t children = MetadataTreeBuilder::rootOffset + 4;
    const std::size_t block = circle.find(Data("a\0\0\0", 4)) - 4 - 16;
    ASSERT_EQ(circle.substr(children, 4), bigEndian(block));
    circle.replace(block + 4 + 4, 4, bigEndian(block)); // the children of its only item
    std::string path;
    for (int level = 0; level < 1'000; ++level) path += "/a";
    EXPECT_EQ(iconIn(circle, "", path), "a");
    EXPECT_EQ(iconIn(circle, "", path + "/b"), "none");
}

TEST(FileMetadata, countsThatLieMakeNoBlock) {
    const Data whole = metadataTree({"/", {{"custom-icon", "root"}}});
    const auto iconWith = [&](std::size_t field, std::uint32_t count) {
        Data tree = whole;
        std::size_t block = 0;
        for (std::size_t i = 0; i < 4; ++i) block = block << 8 | static_cast<unsigned char>(tree[field + i]);
        return iconIn(tree.replace(block, 4, bigEndian(count)), "", "/");
    };
    constexpr std::size_t keys = 20; // where the header says they lie
    constexpr std::size_t values = MetadataTreeBuilder::rootOffset + 8;
    for (const std::size_t field : {keys, values}) {
        EXPECT_EQ(iconWith(field, 1), "root");
        for (const std::uint32_t count : {0U, 1'000U, 0x1FFFFFFFU, 0x80000000U, 0xFFFFFFFFU})
            EXPECT_EQ(iconWith(field, count), "none") << field << ' ' << count;
    }
}

TEST(FileMetadata, itemsOutOfOrderMayNotBeFound) {
    const Data tree = metadataTree({"/",
                                    {},
                                    {{"c", {{"custom-icon", "c"}}},
                                     {"b", {{"custom-icon", "b"}}},
                                     {"a", {{"custom-icon", "a"}}},
                                     {"a", {{"custom-icon", "a"}}}}});
    for (const auto* name : {"a", "b", "c", "d"}) {
        const std::string icon = iconIn(tree, "", name);
        EXPECT_TRUE(icon == name || icon == "none") << name;
    }
}

TEST(FileMetadata, aTreeCutShortGivesTheTextOrNone) {
    const Data whole = writtenTree();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const auto icon = iconIn(whole.substr(0, size), writtenJournal(), "/music/papers/sub/c.txt");
        EXPECT_TRUE(icon == "none" || icon == "file:///c%20c.png") << size;
    }
}

TEST(FileMetadata, aJournalCutShortIsNone) {
    const Data whole = writtenJournal();
    for (std::size_t size = 0; size < 500; ++size)
        EXPECT_EQ(iconIn(writtenTree(), whole.substr(0, size), "/a.txt"), "file:///a.png") << size;
}

TEST(FileMetadata, survivesAnyByteInAnyPlace) {
    const Data tree = writtenTree();
    const Data journal = writtenJournal();
    for (std::size_t i = 0; i < tree.size() + 404; ++i) { // the entries end there
        for (const char value : {'\0', '\1', '/', '\x7F', '\xFF'}) {
            Data damaged = tree + journal;
            damaged[i] = value;
            const DataView both = damaged;
            for (const auto* path : {"/a.txt", "/music/papers/sub/c.txt"}) {
                const auto icon = iconIn(both.substr(0, tree.size()), both.substr(tree.size()), path);
                EXPECT_LT(icon.size(), tree.size()) << i;
            }
        }
    }
}

} // namespace
} // namespace quillmar
