#include "Tests/QuillmarViewer/ServiceTest.h"

#include "Tests/Helpers/TarBuilder.h"
#include "Tests/Helpers/ZipBuilder.h"

namespace quillmar {
namespace {

/// Each kind of page, read back from the window as its user would copy it.
class PagesInTheWindow : public ServiceTest {};

TEST_F(PagesInTheWindow, aTextShowsItsLines) {
    showFile(item("notes.txt", "lemon balm\nthyme\n"));
    EXPECT_TRUE(textOfPageHolds("lemon balm", "notes.txt"));
}

TEST_F(PagesInTheWindow, markdownShowsAsText) {
    showFile(item("herbs.md", "# Herbs\n\nSome *lovage* here.\n"));
    EXPECT_TRUE(textOfPageHolds("Some lovage here.", "herbs.md"));
}

TEST_F(PagesInTheWindow, anArchiveShowsItsEntries) {
    showFile(item("seeds.tar", tar({file("marjoram.txt", "x"), file("chervil.txt", "y")})));
    EXPECT_TRUE(textOfPageHolds("chervil.txt", "seeds.tar"));
}

TEST_F(PagesInTheWindow, aFolderShowsItsItems) {
    const FileURL folder = desktop().folder().makeFolder("garden");
    desktop().folder().write("garden/sorrel.txt", "x");
    showFile(uriOf(folder));
    EXPECT_TRUE(textOfPageHolds("sorrel.txt", "garden"));
}

TEST_F(PagesInTheWindow, whatIsNotThereShowsAMessage) {
    showFile(uriOf(desktop().folder().url("nowhere.txt")));
    EXPECT_TRUE(textOfPageHolds("nowhere.txt", "nowhere.txt"));
}

TEST_F(PagesInTheWindow, aPipeShowsAMessageInsteadOfWaiting) {
    const FileURL pipe = desktop().folder().url("pipe");
    ASSERT_EQ(::mkfifo(pipe.path().c_str(), S_IRUSR | S_IWUSR), 0);
    showFile(uriOf(pipe));
    EXPECT_TRUE(textOfPageHolds("pipe", "pipe"));
}

TEST_F(PagesInTheWindow, aNameWithSpacesAndAccentsIsTheTitle) {
    showFile(item("ü mlaut & 100% #1.txt", "words"));
    EXPECT_TRUE(textOfPageHolds("words", "ü mlaut & 100% #1.txt"));
}

TEST_F(PagesInTheWindow, aPageHasInkOnItsGround) {
    showFile(item("inked.txt", "some words to draw\n"));
    ASSERT_TRUE(windowAppears("inked.txt"));
    EXPECT_TRUE(Desktop::waitUntil([] {
        const auto picture = page();
        return picture && picture->ink() > 50;
    }));
    EXPECT_EQ(page()->at(0, 0), (Color{.red = 255, .green = 255, .blue = 255}));
}

} // namespace
} // namespace quillmar
