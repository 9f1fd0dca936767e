#include "QuillmarQuickLook/Icons/DconfDatabase.h"

#include <charconv>
#include <gtest/gtest.h>

namespace quillmar {
namespace {

constexpr std::string_view iconTheme = "/org/gnome/desktop/interface/icon-theme";

/// What `dconf compile` makes of the icon theme "Papirus", the theme "x" of windows and a list of two
/// favourites.
Data database() {
    constexpr std::string_view hex = "4756617269616e740000000000000000180000001c01000000000028"
                                     "09000000000000000100000003000000050000000600000006000000"
                                     "090000000900000009000000b988fdda040000001c01000008004c00"
                                     "2401000028010000372c709c040000002801000006004c0030010000"
                                     "340100004b50900b060000003401000004004c00380100003c010000"
                                     "784e5513010000003c0100000d0076005001000059010000b0b72430"
                                     "020000005901000006004c0060010000680100009f09873308000000"
                                     "6801000009007600780100007c010000d4b50200ffffffff7c010000"
                                     "01004c0080010000840100002205078808000000840100000a007600"
                                     "900100009a01000039c53b4f000000009a0100000a004c00a4010000"
                                     "ac0100006465736b746f702f080000007368656c6c2f000003000000"
                                     "6f72672f040000006661766f726974652d6170707300000000000000"
                                     "610062000204006173676e6f6d652f00000000000100000067746b2d"
                                     "7468656d6500000000000000780000732f0000000200000069636f6e"
                                     "2d7468656d65000050617069727573000073696e746572666163652f"
                                     "0500000007000000";
    Data bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        unsigned byte = 0;
        std::from_chars(hex.data() + i, hex.data() + i + 2, byte, 16);
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

TEST(DconfDatabase, findsATextByItsKey) {
    EXPECT_EQ(DconfDatabase::text(database(), iconTheme), "Papirus");
    EXPECT_EQ(DconfDatabase::text(database(), "/org/gnome/desktop/interface/gtk-theme"), "x");
}

TEST(DconfDatabase, knowsNoOtherKey) {
    for (const auto* key : {"", "/", "icon-theme", "/icon-theme", "/org/gnome/desktop/interface/",
                            "/org/gnome/desktop/interface/icon-them", "/com/gnome/desktop/interface/icon-theme",
                            "x/org/gnome/desktop/interface/icon-theme"})
        EXPECT_FALSE(DconfDatabase::text(database(), key)) << key;
}

TEST(DconfDatabase, holdsValuesThatAreNoText) {
    EXPECT_FALSE(DconfDatabase::text(database(), "/org/gnome/shell/favorite-apps"));
}

TEST(DconfDatabase, isToldByItsFirstBytes) {
    EXPECT_FALSE(DconfDatabase::text("", iconTheme));
    EXPECT_FALSE(DconfDatabase::text("tnairaVG", iconTheme));
    EXPECT_FALSE(DconfDatabase::text(database().substr(1), iconTheme));
}

TEST(DconfDatabase, cutShortGivesTheTextOrNone) {
    const Data whole = database();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const auto text = DconfDatabase::text(whole.substr(0, size), iconTheme);
        EXPECT_TRUE(!text || text == "Papirus") << size;
    }
}

TEST(DconfDatabase, survivesAnyByteInAnyPlace) {
    for (std::size_t i = 0; i < database().size(); ++i) {
        for (const char value : {'\0', '\x7F', '\xFF'}) {
            Data damaged = database();
            damaged[i] = value;
            const auto text = DconfDatabase::text(damaged, iconTheme);
            EXPECT_TRUE(!text || text->size() < damaged.size()) << i;
        }
    }
}

TEST(DconfDatabase, endsWhereParentsGoRound) {
    Data circle = database();
    // Every item its own parent's child: the number of the parent stands 4 bytes into each of the 9 items.
    for (std::size_t item = 0; item < 9; ++item) circle.replace(68 + item * 24 + 4, 4, Data("\6\0\0\0", 4));
    EXPECT_FALSE(DconfDatabase::text(circle, iconTheme));
}

} // namespace
} // namespace quillmar
