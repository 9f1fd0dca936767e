#include "Markdown/ImageSource.h"

#include "Platform/Text.h"

#include <gtest/gtest.h>
#include <string>
#include <unicode/unistr.h>
#include <vector>

namespace quillmar::Markdown {
namespace {

/// Resolves every path to "cid:" and the path.
std::optional<std::string> resolved(std::string_view source) {
    return imageSource(source, [](const std::string& path) { return "cid:" + path; });
}

TEST(ImageSource, remoteAndInlineImagesStayAsWritten) {
    for (const std::string source :
         {"https://example.org/a%20b.png?x=1&y=2", "http://", "data:image/png;base64,AAAA"})
        EXPECT_EQ(resolved(source), source);
}

TEST(ImageSource, schemesAreKnownInCapitals) {
    EXPECT_EQ(resolved("HTTPS://Example.org/A.PNG"), "HTTPS://Example.org/A.PNG");
    EXPECT_EQ(resolved("Data:Image/PNG,"), "Data:Image/PNG,");
}

TEST(ImageSource, everyOtherSchemeIsRefused) {
    for (const std::string_view source :
         {"file:///etc/passwd", "javascript:alert(1)", "data:text/html,x", "http:a.png", "https:/a.png",
          "cid:1", ":", "a/b:c.png", " https://example.org/a.png"})
        EXPECT_EQ(resolved(source), std::nullopt) << source;
}

TEST(ImageSource, aColonIsSeenBesideCombiningMarks) { EXPECT_EQ(resolved("file:\u0301x"), std::nullopt); }

TEST(ImageSource, pathsAreResolved) {
    EXPECT_EQ(resolved("images/a.png"), "cid:images/a.png");
    EXPECT_EQ(resolved("../a.png"), "cid:../a.png");
    EXPECT_EQ(resolved("/a.png"), "cid:/a.png");
    EXPECT_EQ(resolved(""), "cid:");
}

TEST(ImageSource, aPathInTheFolderMayHoldAColon) {
    EXPECT_EQ(resolved("./a:b.png"), "cid:./a:b.png");
    EXPECT_EQ(resolved("./javascript:x"), "cid:./javascript:x");
}

TEST(ImageSource, pathsAreResolvedWithoutPercentEncoding) {
    EXPECT_EQ(resolved("a%20b%C3%A9.png"), "cid:a b\u00E9.png");
}

TEST(ImageSource, anEncodedColonIsNoScheme) { EXPECT_EQ(resolved("a%3Ab.png"), "cid:a:b.png"); }

TEST(ImageSource, aPathThatCannotBeDecodedIsResolvedAsWritten) {
    EXPECT_EQ(resolved("100%.png"), "cid:100%.png");
    EXPECT_EQ(resolved("a%20b%FF.png"), "cid:a%20b%FF.png");
}

TEST(ImageSource, whatIsNotFoundHasNoURL) {
    EXPECT_EQ(imageSource("a.png", [](const std::string&) { return std::nullopt; }), std::nullopt);
}

TEST(ImageSource, withoutAResolverNoPathHasAURL) {
    EXPECT_EQ(imageSource("a.png", nullptr), std::nullopt);
    EXPECT_EQ(imageSource("https://example.org/a.png", nullptr), "https://example.org/a.png");
}

TEST(ImageSource, remoteImagesAreNotResolved) {
    std::vector<std::string> asked;
    imageSource("https://example.org/a.png", [&](const std::string& path) {
        asked.push_back(path);
        return std::nullopt;
    });
    EXPECT_TRUE(asked.empty());
}

TEST(ImageSource, agreesWithTheFullLowerCaseMapping) {
    // Characters outside ASCII may become ASCII letters when they are lower-cased: none completes a prefix.
    for (UChar32 character = 0; character < 0xD800; ++character) {
        std::string text;
        icu::UnicodeString(character).toUTF8String(text);
        const std::string http = "http" + text + "://";
        ASSERT_EQ(imageSource(http, nullptr).has_value(), lowercased(http) == "https://") << character;
        const std::string data = "data:" + text + "mage/";
        ASSERT_EQ(imageSource(data, nullptr).has_value(), lowercased(data) == "data:image/") << character;
    }
}

} // namespace
} // namespace quillmar::Markdown
