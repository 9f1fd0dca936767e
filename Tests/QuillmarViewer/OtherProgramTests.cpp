#include "Tests/QuillmarViewer/Listener.h"
#include "Tests/QuillmarViewer/ServiceTest.h"

namespace quillmar {
namespace {

/// What is opened in the user's other programs. There is one such program, which notes what it is started with.
class OtherPrograms : public StagedServiceTest {
protected:
    static void SetUpTestSuite() {
        StagedServiceTest::SetUpTestSuite();
        const auto& folder = desktop().folder();
        const std::string part = note() + ".part";
        const std::string program =
            folder
                .write("program", "#!/bin/sh\n{ printf '%s\\n' \"$1\"; env; } > \"" + part + "\"\nmv \"" +
                                      part + "\" \"" + note() + "\"\n")
                .path();
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        folder.makeFolder("data/applications");
        folder.write("data/applications/program.desktop",
                     "[Desktop Entry]\nType=Application\nName=Program\nExec=" + program +
                         " %u\nMimeType=text/plain;x-scheme-handler/http;\n");
        folder.write(
            "data/applications/mimeapps.list",
            "[Default Applications]\ntext/plain=program.desktop\nx-scheme-handler/http=program.desktop\n");
    }
    void SetUp() override {
        StagedServiceTest::SetUp();
        std::filesystem::remove(note());
    }

    static std::string note() { return desktop().folder().url("noted").path(); }
    /// What the program was asked to open; empty when it is not started.
    static std::string opened() {
        Desktop::waitUntil([] { return std::filesystem::exists(note()); });
        const std::string noted = contentsOf(note());
        return noted.substr(0, noted.find('\n'));
    }
    static bool wasStartedWith(const std::string& variable) {
        return contentsOf(note()).find("\n" + variable + "=") != std::string::npos;
    }
};

TEST_F(OtherPrograms, aLinkOpensInTheBrowserAndNotInTheWindow) {
    Listener listener;
    const std::string target = listener.url("read#here");
    showFile(item("made.page", "<!DOCTYPE html><body style=\"background:#00ff00\"><a href=\"" + target +
                                   "\" style=\"position:fixed;inset:0\">link</a></body>"));
    ASSERT_TRUE(windowAppears("made.page"));
    ASSERT_TRUE(pageBecomes(green));
    const auto place = screen().place(screen().window("made.page").value_or(0));
    desktop().click(place.x + place.width / 2, place.y + place.height / 2);
    EXPECT_EQ(opened(), target);
    EXPECT_FALSE(listener.wasVisited());
    EXPECT_TRUE(pageBecomes(green));
}

TEST_F(OtherPrograms, returnOpensTheItemAndCloses) {
    const std::string uri = item("herbs.txt", "lovage\n");
    showFile(uri);
    pressIn("herbs.txt", "Return");
    const std::string path = desktop().folder().url("herbs.txt").path();
    const std::string asked = opened();
    EXPECT_TRUE(asked == uri || asked == path) << asked;
    EXPECT_TRUE(windowGoes("herbs.txt"));
}

TEST_F(OtherPrograms, theyInheritNothingOfHowTheWindowDraws) {
    showFile(item("herbs.txt", "lovage\n"));
    pressIn("herbs.txt", "Return");
    ASSERT_FALSE(opened().empty());
    EXPECT_FALSE(wasStartedWith("GDK_DEBUG"));
    EXPECT_FALSE(wasStartedWith("WEBKIT_DISABLE_DMABUF_RENDERER"));
    EXPECT_FALSE(wasStartedWith("JSC_useJIT"));
}

TEST_F(OtherPrograms, theyInheritWhatTheUserHasChosen) {
    showFile(item("herbs.txt", "lovage\n"));
    pressIn("herbs.txt", "Return");
    ASSERT_FALSE(opened().empty());
    EXPECT_TRUE(wasStartedWith("GSK_RENDERER")); // the desktop of these tests says so
}

} // namespace
} // namespace quillmar
