#include "QuillmarQuickLook/Icons/IconRenderer.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pictures.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

/// A length as this machine writes it.
Data lengthOf(std::size_t bytes) {
    const auto length = static_cast<std::uint32_t>(bytes);
    return {reinterpret_cast<const char*>(&length), sizeof length};
}

Data message(const Data& content) { return lengthOf(content.size()) + content; }

/// Programs of a few lines in the place of the one that draws. Each notes its starts.
struct IconRendererTest : testing::Test {
    std::string program(const std::string& lines) const {
        folder.write("program", "#!/bin/sh\necho $$ >> '" + path("starts") + "'\n" + ready + lines);
        std::filesystem::permissions(path("program"), std::filesystem::perms::owner_all);
        return path("program");
    }

    /// Answers every picture of \p pictureBytes with the same bytes.
    std::string programThatSays(const Data& bytes) const {
        folder.write("answer", bytes);
        // A picture is seen whole or not at all.
        return program("cd '" + folder.path().string() + "'\nwhile head -c " +
                       std::to_string(4 + picture.size()) +
                       " > next && test -s next; do mv next picture; cat answer >&0; done\n");
    }

    std::vector<int> processes() const {
        std::ifstream file(folder.path() / "starts");
        return {std::istream_iterator<int>(file), {}};
    }

    static bool isGone(int process) { return ::kill(process, 0) != 0 && errno == ESRCH; }

    std::string path(const std::string& name) const { return (folder.path() / name).string(); }

    TemporaryFolder folder;
    std::string ready = "printf '\\000\\000\\000\\000' >&0\n"; ///< the first of what a program says
    Data picture = "a picture";
    Data icon = png(128, 128, red);
};

TEST_F(IconRendererTest, handsThePictureOverAndTheIconBack) {
    IconRenderer renderer(programThatSays(message(icon)));
    EXPECT_EQ(renderer.render(picture), icon);
    EXPECT_EQ(contentsOf(path("picture")), message(picture));
}

TEST_F(IconRendererTest, startsTheProgramOnceAndNotBeforeThereIsAPicture) {
    IconRenderer renderer(programThatSays(message(icon)));
    EXPECT_TRUE(processes().empty());
    for (int i = 0; i < 3; ++i) EXPECT_EQ(renderer.render(picture), icon);
    EXPECT_EQ(processes().size(), 1U);
}

TEST_F(IconRendererTest, endsTheProgramWithItself) {
    {
        IconRenderer renderer(programThatSays(message(icon)));
        EXPECT_TRUE(renderer.render(picture));
        ASSERT_EQ(processes().size(), 1U);
        EXPECT_FALSE(isGone(processes().front()));
    }
    EXPECT_TRUE(isGone(processes().front()));
}

TEST_F(IconRendererTest, tellsTheProgramNothingOfTheEnvironment) {
    const ScopedEnvironment environment({{"QUILLMAR_SECRET", "secret"}});
    IconRenderer renderer(program("env > '" + path("environment") + "'\n"));
    EXPECT_EQ(renderer.render(picture).value_or(Data()), Data());
    EXPECT_FALSE(contentsOf(path("environment")).empty()); // a shell sets some of its own
    EXPECT_EQ(contentsOf(path("environment")).find("QUILLMAR"), Data::npos);
}

TEST_F(IconRendererTest, takesNothingThatIsNoIcon) {
    Data wide = icon;
    wide[19] = '\x81'; // the last byte of its width
    for (const Data& answer :
         {"garbage"s, ""s, png(64, 64, red), wide, icon.substr(0, 20), svg(128, 128, "red")}) {
        IconRenderer renderer(programThatSays(message(answer)));
        EXPECT_EQ(renderer.render(picture).value_or(Data()), Data()) << answer;
    }
}

TEST_F(IconRendererTest, keepsAProgramThatAnswersWithNothing) {
    IconRenderer renderer(programThatSays(message("")));
    EXPECT_EQ(renderer.render(picture).value_or(Data()), Data());
    EXPECT_EQ(renderer.render(picture).value_or(Data()), Data());
    EXPECT_EQ(processes().size(), 1U);
}

TEST_F(IconRendererTest, takesAnIconOfTheLargestSizeAndNoLarger) {
    Data large = icon;
    large.resize(IconRenderer::maxIconBytes);
    IconRenderer renderer(programThatSays(message(large)));
    EXPECT_EQ(renderer.render(picture), large);
    large += 'x';
    IconRenderer other(programThatSays(message(large)));
    EXPECT_EQ(other.render(picture).value_or(Data()), Data());
}

TEST_F(IconRendererTest, endsAProgramThatSaysTooMuch) {
    for (const std::size_t length : {IconRenderer::maxIconBytes + 1, std::size_t{0xFFFFFFFF}}) {
        IconRenderer renderer(programThatSays(lengthOf(length) + icon));
        EXPECT_EQ(renderer.render(picture).value_or(Data()), Data());
        EXPECT_TRUE(isGone(processes().back()));
    }
}

TEST_F(IconRendererTest, endsAProgramThatHangs) {
    IconRenderer renderer(program("exec sleep 1000\n"));
    EXPECT_EQ(renderer.render(picture).value_or(Data()), Data());
    ASSERT_EQ(processes().size(), 1U);
    EXPECT_TRUE(isGone(processes().front()));
}

TEST_F(IconRendererTest, endsAProgramThatHangsInItsAnswer) {
    folder.write("answer", message(icon).substr(0, 100));
    IconRenderer renderer(program("cat '" + path("answer") + "' >&0\nexec sleep 1000\n"));
    EXPECT_EQ(renderer.render(picture).value_or(Data()), Data());
    EXPECT_TRUE(isGone(processes().front()));
}

TEST_F(IconRendererTest, endsAProgramThatDoesNotTakeThePicture) {
    IconRenderer renderer(program("exec sleep 1000\n"));
    EXPECT_EQ(renderer.render(Data(IconRenderer::maxPictureBytes, 'x')).value_or(Data()), Data());
    EXPECT_TRUE(isGone(processes().front()));
}

TEST_F(IconRendererTest, outlivesAProgramThatDies) {
    for (const auto* lines :
         {"exit 0\n", "exit 1\n", "kill -9 $$\n", "kill -SEGV $$\n", "head -c 3 > /dev/null\n"}) {
        IconRenderer renderer(program(lines));
        EXPECT_EQ(renderer.render(picture).value_or(Data()), Data()) << lines;
        EXPECT_EQ(renderer.render(Data(IconRenderer::maxPictureBytes, 'x')).value_or(Data()), Data()) << lines;
    }
}

TEST_F(IconRendererTest, startsTheProgramAgainAfterAPictureThatEndedIt) {
    folder.write("answer", message(icon));
    const std::string first = "test -e '" + path("marker") + "' || { touch '" + path("marker") + "'; ";
    const std::string serve = "head -c 13 > /dev/null; cat '" + path("answer") + "' >&0; exec sleep 1000\n";
    for (const auto* end : {"exec sleep 1000; }\n", "exit 1; }\n"}) {
        std::filesystem::remove(path("marker"));
        IconRenderer renderer(program(first + end + serve));
        EXPECT_EQ(renderer.render(picture).value_or(Data()), Data()) << end;
        EXPECT_EQ(renderer.render(picture), icon) << end;
    }
}

TEST_F(IconRendererTest, handsNoPictureOverThatIsTooLarge) {
    IconRenderer renderer(programThatSays(message(icon)));
    EXPECT_EQ(renderer.render(Data(IconRenderer::maxPictureBytes + 1, 'x')).value_or(Data()), Data());
    EXPECT_TRUE(processes().empty());
}

TEST_F(IconRendererTest, drawsNothingWithoutAProgram) {
    folder.write("not-executable", "#!/bin/sh\n");
    folder.write("no-program", "\x7F"
                               "ELF");
    std::filesystem::permissions(path("no-program"), std::filesystem::perms::owner_all);
    for (const std::string& program :
         {""s, path("missing"), path("not-executable"), path("no-program"), path("")}) {
        IconRenderer renderer(program);
        EXPECT_FALSE(renderer.render(picture)) << program;
        EXPECT_FALSE(renderer.render(picture)) << program;
    }
}

/// The program that draws.
struct RealIconRenderer : testing::Test {
    Pixel centreOf(DataView picture) { return Icon(renderer.render(picture).value()).at(64, 64); }

    /// That the last picture did no harm.
    void expectNextPicture() { EXPECT_EQ(centreOf(svg(64, 64, "blue")), blue); }

    IconRenderer renderer{QUILLMAR_RENDERER};
};

TEST_F(RealIconRenderer, standsBesideThisProgram) {
    EXPECT_TRUE(std::filesystem::equivalent(IconRenderer::standardProgram(), QUILLMAR_RENDERER));
}

TEST_F(RealIconRenderer, drawsPNGsAndSVGs) {
    EXPECT_EQ(centreOf(png(64, 64, red)), red);
    EXPECT_EQ(centreOf(svg(64, 64, "blue")), blue);
    EXPECT_EQ(centreOf(png(256, 256, blue)), blue);
}

TEST_F(RealIconRenderer, drawsManyPictures) {
    for (int i = 0; i < 300; ++i)
        ASSERT_EQ(centreOf(svg(64, 64, i % 2 == 0 ? "red" : "blue")), i % 2 == 0 ? red : blue) << i;
}

TEST_F(RealIconRenderer, keepsTheProportionsOfAPicture) {
    for (const Data& picture : {png(256, 64, red), svg(256, 64, "red")}) {
        const Icon icon(renderer.render(picture).value());
        EXPECT_EQ(icon.at(64, 64), red);
        EXPECT_EQ(icon.at(64, 20), clear);
    }
}

TEST_F(RealIconRenderer, drawsNothingBroken) {
    for (const Data& picture :
         {""s, "garbage"s, png(64, 64, red).substr(0, 50), svg(64, 64, "red").substr(0, 50)}) {
        EXPECT_EQ(renderer.render(picture).value_or(Data()), Data());
        expectNextPicture();
    }
}

TEST_F(RealIconRenderer, drawsNoPNGOfManyPixels) {
    EXPECT_EQ(renderer.render(pngOf(30'000, 30'000, Data(300'000, '\0'))).value_or(Data()), Data());
    expectNextPicture();
}

TEST_F(RealIconRenderer, takesAPictureOfTheLargestSize) {
    Data large = svg(64, 64, "red");
    large.resize(IconRenderer::maxPictureBytes, ' ');
    EXPECT_EQ(centreOf(large), red);
    EXPECT_EQ(renderer.render(large + ' ').value_or(Data()), Data());
    expectNextPicture();
}

TEST_F(RealIconRenderer, outlivesAnSVGOfManyElements) {
    Data picture = R"(<svg xmlns="http://www.w3.org/2000/svg">)";
    while (picture.size() + 10 < IconRenderer::maxPictureBytes) picture += "<g/>";
    renderer.render(picture + "</svg>");
    expectNextPicture();
}

TEST_F(RealIconRenderer, outlivesAnSVGOfDeepElements) {
    Data picture = R"(<svg xmlns="http://www.w3.org/2000/svg">)";
    while (picture.size() + 10 < IconRenderer::maxPictureBytes) picture += "<g>";
    renderer.render(picture);
    expectNextPicture();
    Data whole = R"(<svg xmlns="http://www.w3.org/2000/svg">)";
    for (int i = 0; i < 100'000; ++i) whole += "<g>";
    for (int i = 0; i < 100'000; ++i) whole += "</g>";
    renderer.render(whole + "</svg>");
    expectNextPicture();
}

TEST_F(RealIconRenderer, outlivesAnSVGThatMultiplies) {
    Data uses =
        R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink"><g id="a0">)"
        R"(<rect width="9" height="9"/></g>)";
    Data entities = "<!DOCTYPE svg [<!ENTITY a0 \"xxxxxxxxxx\">";
    for (int i = 1; i < 20; ++i) {
        const std::string before = std::to_string(i - 1);
        uses += "<g id=\"a" + std::to_string(i) + "\">";
        entities += "<!ENTITY a" + std::to_string(i) + " \"";
        for (int copy = 0; copy < 10; ++copy) {
            uses += "<use xlink:href=\"#a" + before + "\"/>";
            entities += "&a" + before + ";";
        }
        uses += "</g>";
        entities += "\">";
    }
    renderer.render(uses + "</svg>");
    expectNextPicture();
    renderer.render(entities + R"(]><svg xmlns="http://www.w3.org/2000/svg"><text>&a19;</text></svg>)");
    expectNextPicture();
}

TEST_F(RealIconRenderer, outlivesAnSVGThatTakesForEver) {
    Data picture = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 9 9"><filter id="f" x="-9" y="-9" )"
                   R"(width="99" height="99">)";
    for (int i = 0; i < 2'000; ++i)
        picture += R"(<feTurbulence numOctaves="99"/><feGaussianBlur stdDeviation="5"/>)";
    picture += R"(</filter><rect width="9" height="9" filter='url(#f)'/></svg>)";
    renderer.render(picture);
    expectNextPicture();
}

TEST_F(RealIconRenderer, showsNothingThatAPictureRefersTo) {
    const TemporaryFolder folder;
    folder.write("red.png", png(128, 128, red));
    const auto icon =
        renderer.render(R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink=)"
                        R"("http://www.w3.org/1999/xlink" viewBox="0 0 9 9"><image width="9" height="9" )"
                        R"(xlink:href="file://)" +
                        (folder.path() / "red.png").string() + R"("/></svg>)");
    EXPECT_TRUE(!icon || Icon(*icon).isClear());
}

} // namespace
} // namespace quillmar
