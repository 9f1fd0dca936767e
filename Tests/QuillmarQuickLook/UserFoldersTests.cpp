#include "QuillmarQuickLook/UserFolders.h"

#include "Tests/Helpers/Environment.h"

#include <gtest/gtest.h>

namespace quillmar::UserFolders {
namespace {

TEST(UserFolders, areThoseThatTheEnvironmentNames) {
    const ScopedEnvironment environment{
        {"HOME", "/home/a"}, {"XDG_DATA_HOME", "/d"}, {"XDG_CONFIG_HOME", "/co"}, {"XDG_CACHE_HOME", "/ca"}};
    EXPECT_EQ(home(), "/home/a");
    EXPECT_EQ(data(), "/d");
    EXPECT_EQ(config(), "/co");
    EXPECT_EQ(cache(), "/ca");
}

TEST(UserFolders, lieInTheHomeFolderElse) {
    const ScopedEnvironment environment{{"HOME", "/home/a"},
                                        {"XDG_DATA_HOME", std::nullopt},
                                        {"XDG_CONFIG_HOME", ""},
                                        {"XDG_CACHE_HOME", "relative/place"}};
    EXPECT_EQ(data(), "/home/a/.local/share");
    EXPECT_EQ(config(), "/home/a/.config");
    EXPECT_EQ(cache(), "/home/a/.cache");
}

TEST(UserFolders, areNoneWithoutAHomeFolder) {
    for (const char* value : {"", "relative", "~"}) {
        const ScopedEnvironment environment{{"HOME", value},
                                            {"XDG_DATA_HOME", std::nullopt},
                                            {"XDG_CONFIG_HOME", std::nullopt},
                                            {"XDG_CACHE_HOME", std::nullopt}};
        EXPECT_EQ(home() + data() + config() + cache(), "") << value;
    }
}

} // namespace
} // namespace quillmar::UserFolders
