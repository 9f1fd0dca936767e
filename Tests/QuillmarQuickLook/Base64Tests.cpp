#include "QuillmarQuickLook/Base64.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(Base64, agreesWithTheVectorsOfTheRFC) {
    // RFC 4648, 10
    EXPECT_EQ(base64(""), "");
    EXPECT_EQ(base64("f"), "Zg==");
    EXPECT_EQ(base64("fo"), "Zm8=");
    EXPECT_EQ(base64("foo"), "Zm9v");
    EXPECT_EQ(base64("foob"), "Zm9vYg==");
    EXPECT_EQ(base64("fooba"), "Zm9vYmE=");
    EXPECT_EQ(base64("foobar"), "Zm9vYmFy");
}

TEST(Base64, encodesEveryByte) { EXPECT_EQ(base64(std::string("\0\xFF\xFB", 3)), "AP/7"); }

} // namespace
} // namespace quillmar
