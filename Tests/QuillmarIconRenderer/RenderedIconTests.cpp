#include "QuillmarIconRenderer/RenderedIcon.h"

#include "Tests/Helpers/Pictures.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

constexpr int side = 128;

Icon iconOf(DataView picture) { return Icon(renderedIcon(picture, side).value()); }

/// The body of an SVG of 128 by 128 units.
Data svgWith(const std::string& body) {
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" )"
           R"(xmlns:xi="http://www.w3.org/2001/XInclude" viewBox="0 0 128 128">)" +
           body + "</svg>";
}

TEST(RenderedIcon, ofAPNGHasItsColourAndTheSizeThatIsWanted) {
    for (const std::uint32_t size : {1U, 16U, 128U, 512U}) {
        const Icon icon = iconOf(png(size, size, red));
        EXPECT_EQ(icon.width, 128U);
        EXPECT_EQ(icon.height, 128U);
        EXPECT_EQ(icon.at(64, 64), red) << size;
    }
}

TEST(RenderedIcon, ofAnSVGHasItsColourAndTheSizeThatIsWanted) {
    for (const int size : {1, 16, 128, 5'000}) {
        const Icon icon = iconOf(svg(size, size, "blue"));
        EXPECT_EQ(icon.width, 128U);
        EXPECT_EQ(icon.height, 128U);
        EXPECT_EQ(icon.at(1, 1), blue) << size;
        EXPECT_EQ(icon.at(126, 126), blue) << size;
    }
}

TEST(RenderedIcon, hasTheSizeThatIsWanted) {
    EXPECT_EQ(Icon(renderedIcon(svg(10, 10, "red"), 17).value()).width, 17U);
    EXPECT_EQ(Icon(renderedIcon(png(10, 10, red), 17).value()).height, 17U);
}

TEST(RenderedIcon, keepsTheProportionsOfWidePictures) {
    for (const Data& picture : {png(256, 64, red), png(32, 8, red), svg(256, 64, "red")}) {
        const Icon icon = iconOf(picture);
        EXPECT_EQ(icon.at(64, 64), red);
        EXPECT_EQ(icon.at(4, 64), red);
        EXPECT_EQ(icon.at(64, 40), clear);
        EXPECT_EQ(icon.at(64, 88), clear);
    }
}

TEST(RenderedIcon, keepsTheProportionsOfTallPictures) {
    for (const Data& picture : {png(64, 256, red), png(8, 32, red), svg(64, 256, "red")}) {
        const Icon icon = iconOf(picture);
        EXPECT_EQ(icon.at(64, 4), red);
        EXPECT_EQ(icon.at(40, 64), clear);
        EXPECT_EQ(icon.at(88, 64), clear);
    }
}

TEST(RenderedIcon, isClearWhereThePictureIs) {
    EXPECT_TRUE(iconOf(png(64, 64, clear)).isClear());
    EXPECT_TRUE(iconOf(svgWith("")).isClear());
}

TEST(RenderedIcon, isNoneOfWhatIsNoPicture) {
    for (const auto& bytes : {""s, "x"s, "\0\0\0\0"s, "GIF89a"s, "\xFF\xD8\xFF\xE0"s, "<html></html>"s, "<svg"s,
                              "\x89PNG\r\n\x1A\n"s, "\x1F\x8B\x08"s})
        EXPECT_FALSE(renderedIcon(bytes, side)) << bytes;
}

TEST(RenderedIcon, isNoneOfACutPNG) {
    const Data whole = png(8, 8, red);
    for (std::size_t length = 0; length + 12 < whole.size();
         ++length) // up to its last chunk, the mark of its end
        EXPECT_FALSE(renderedIcon(whole.substr(0, length), side)) << length;
}

TEST(RenderedIcon, isNoneOrAnIconOfADamagedPNG) {
    const Data whole = png(8, 8, red);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        Data damaged = whole;
        damaged[i] = static_cast<char>(~damaged[i]);
        const auto icon = renderedIcon(damaged, side);
        EXPECT_TRUE(!icon || Icon(*icon).width == 128) << i;
    }
}

TEST(RenderedIcon, isNoneOfABrokenSVG) {
    const Data whole = svg(8, 8, "red");
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(renderedIcon(whole.substr(0, length), side)) << length;
    EXPECT_FALSE(renderedIcon(svgWith("<g></h>"), side));
    EXPECT_FALSE(renderedIcon(svgWith("&nothing;"), side));
}

TEST(RenderedIcon, isNoneOfAPNGThatIsTooLarge) {
    EXPECT_FALSE(renderedIcon(pngOf(30'000, 30'000, ""), side));
    EXPECT_FALSE(renderedIcon(pngOf(0xFFFFFFFF, 1, ""), side));
    EXPECT_FALSE(renderedIcon(pngOf(0x80000000, 0x80000000, ""), side));
    EXPECT_FALSE(renderedIcon(png(maxPictureSide + 1, 1, red), side));
    EXPECT_FALSE(renderedIcon(png(1, maxPictureSide + 1, red), side));
}

TEST(RenderedIcon, isThereForTheLargestPNG) {
    EXPECT_EQ(iconOf(png(maxPictureSide, maxPictureSide, red)).at(64, 64), red);
    EXPECT_TRUE(renderedIcon(png(maxPictureSide, 1, red), side));
    EXPECT_TRUE(renderedIcon(png(1, maxPictureSide, red), side));
}

TEST(RenderedIcon, isNoneOfAPNGWithoutPixels) {
    EXPECT_FALSE(renderedIcon(pngOf(0, 0, ""), side));
    EXPECT_FALSE(renderedIcon(pngOf(0, 10, ""), side));
    EXPECT_FALSE(renderedIcon(pngOf(10, 0, ""), side));
    EXPECT_FALSE(renderedIcon(pngOf(1'000, 1'000, ""), side));
}

TEST(RenderedIcon, livesWithSVGsOfAnySize) {
    for (const auto* size : {"0", "-1", "1e30", "99999999999", "1e-30", "NaN", "1000000%"}) {
        const auto icon = renderedIcon(R"(<svg xmlns="http://www.w3.org/2000/svg" width=")"s + size +
                                           R"(" height=")" + size + R"("><rect width="9" height="9"/></svg>)",
                                       side);
        EXPECT_TRUE(!icon || Icon(*icon).width == 128) << size;
    }
}

/// A red picture in a file, in all its forms, and a working folder beside it.
struct RenderedIconReferences : testing::Test {
    RenderedIconReferences() : workingFolder(std::filesystem::current_path()) {
        folder.write("red.png", png(128, 128, red));
        folder.write("red.svg", svgWith(R"(<rect id="red" width="128" height="128" fill="red"/>)"));
        folder.write("red.xml", R"(<rect width="128" height="128" fill="red"/>)");
        folder.write("red.css", "rect { fill: red }");
        std::filesystem::current_path(folder.path());
    }
    ~RenderedIconReferences() override { std::filesystem::current_path(workingFolder); }

    /// What addresses the file called \p name.
    std::vector<std::string> addresses(const std::string& name) const {
        const std::string path = (folder.path() / name).string();
        return {"file://" + path, "file:" + path, path, name, "./" + name, "file:" + name};
    }

    static bool showsNothing(DataView picture) {
        const auto icon = renderedIcon(picture, side);
        return !icon || Icon(*icon).isClear();
    }

    TemporaryFolder folder;
    std::filesystem::path workingFolder;
};

TEST_F(RenderedIconReferences, areThereToBeShown) {
    EXPECT_FALSE(showsNothing(contentsOf("red.png")));
    EXPECT_FALSE(showsNothing(contentsOf("red.svg")));
    EXPECT_FALSE(showsNothing(svgWith(contentsOf("red.xml"))));
    EXPECT_FALSE(showsNothing(
        svgWith("<style>" + contentsOf("red.css") + R"(</style><rect width="9" height="9" fill="none"/>)")));
}

TEST_F(RenderedIconReferences, ofImagesShowNothing) {
    for (const auto* name : {"red.png", "red.svg"})
        for (const std::string& address : addresses(name))
            for (const auto* attribute : {"href", "xlink:href"})
                EXPECT_TRUE(showsNothing(
                    svgWith("<image width=\"128\" height=\"128\" "s + attribute + "=\"" + address + "\"/>")))
                    << attribute << address;
}

TEST_F(RenderedIconReferences, ofPartsOfOtherPicturesShowNothing) {
    for (const std::string& address : addresses("red.svg")) {
        EXPECT_TRUE(showsNothing(svgWith("<use xlink:href=\"" + address + "#red\"/>"))) << address;
        EXPECT_TRUE(showsNothing(svgWith(R"(<filter id="f"><feImage xlink:href=")" + address +
                                         R"(#red"/></filter><rect width="128" height="128" fill="none" )"
                                         R"(filter='url(#f)'/>)")))
            << address;
    }
}

TEST_F(RenderedIconReferences, ofEntitiesShowNothing) {
    for (const std::string& address : addresses("red.xml")) {
        EXPECT_TRUE(
            showsNothing("<!DOCTYPE svg [<!ENTITY red SYSTEM \"" + address + "\">]>" + svgWith("&red;")))
            << address;
        EXPECT_TRUE(
            showsNothing("<!DOCTYPE svg [<!ENTITY % red SYSTEM \"" + address + "\"> %red;]>" + svgWith("")))
            << address;
    }
}

TEST_F(RenderedIconReferences, ofIncludedDocumentsShowNothing) {
    for (const std::string& address : addresses("red.svg"))
        EXPECT_TRUE(showsNothing(svgWith("<xi:include href=\"" + address + "\"/>"))) << address;
    for (const std::string& address : addresses("red.xml"))
        EXPECT_TRUE(showsNothing(svgWith("<text y=\"99\" font-size=\"99\"><xi:include parse=\"text\" href=\"" +
                                         address + "\"/></text>")))
            << address;
}

TEST_F(RenderedIconReferences, ofStylesShowNothing) {
    const std::string rect = R"(<rect width="128" height="128" fill="none"/>)";
    for (const std::string& address : addresses("red.css")) {
        EXPECT_TRUE(showsNothing(svgWith("<style>@import url(\"" + address + "\");</style>" + rect)))
            << address;
        EXPECT_TRUE(
            showsNothing("<?xml-stylesheet type=\"text/css\" href=\"" + address + "\"?>" + svgWith(rect)))
            << address;
    }
}

} // namespace
} // namespace quillmar
