#include "QuillmarViewer/WindowHandle.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

TEST(WindowHandle, isAHexadecimalNumberOfX11) {
    EXPECT_EQ(WindowHandle::x11Window("x11:1c00007"), 0x1C00007U);
    EXPECT_EQ(WindowHandle::x11Window("x11:FF"), 0xFFU);
}

TEST(WindowHandle, isWhatAProgramExportedOnWayland) {
    EXPECT_EQ(WindowHandle::waylandExport("wayland:5*>fgAKke/"), "5*>fgAKke/");
}

TEST(WindowHandle, isOfOneDisplayOnly) {
    EXPECT_EQ(WindowHandle::x11Window("wayland:1"), std::nullopt);
    EXPECT_EQ(WindowHandle::waylandExport("x11:1"), std::nullopt);
}

TEST(WindowHandle, isNoneWhenItIsNoNumberOfX11) {
    for (const auto& handle : {""s, "x11"s, "x11:"s, "x11:0"s, "x11:-1"s, "x11:+1"s, "x11:0x1"s, "x11: 1"s,
                               "x11:1 "s, "x11:zz"s, "x11:1\0"s, "x11:10000000000000000"s, "1"s})
        EXPECT_EQ(WindowHandle::x11Window(handle), std::nullopt) << handle;
}

TEST(WindowHandle, isNoneWhenWaylandCouldNotSendIt) {
    const std::string prefix = "wayland:";
    EXPECT_EQ(WindowHandle::waylandExport(prefix + std::string(1'024, 'x')), std::string(1'024, 'x'));
    EXPECT_EQ(WindowHandle::waylandExport(prefix + std::string(1'025, 'x')), std::nullopt);
    EXPECT_EQ(WindowHandle::waylandExport(prefix), std::nullopt);
    EXPECT_EQ(WindowHandle::waylandExport("wayland:a\0b"s), std::nullopt);
}

} // namespace
} // namespace quillmar
