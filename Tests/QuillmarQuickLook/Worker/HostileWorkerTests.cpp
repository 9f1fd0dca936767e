#include "QuillmarQuickLook/Worker/ConfinedPreview.h"

#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pages.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/QuillmarQuickLook/Worker/Leftovers.h"
#include "Tests/QuillmarQuickLook/Worker/MemoryLimit.h"
#include "Tests/QuillmarQuickLook/Worker/MisbehavingWorker.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

constexpr std::string_view stopped =
    "Quillmar couldn&#39;t read this item. The program that reads it has stopped unexpectedly.";
constexpr std::string_view tookTooLong =
    "Quillmar couldn&#39;t read this item. Reading it took too long and was stopped.";

class HostileWorkerTest : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_TRUE(hasNoChildren());
        EXPECT_EQ(openDescriptors(), descriptors_);
    }

    PreviewDocument preview(const std::string& conduct, const FileURL& url) {
        const ScopedEnvironment environment{{MisbehavingWorker::variable, conduct}};
        return ConfinedPreview().document(url, &icons);
    }
    PreviewDocument preview(const std::string& conduct) { return preview(conduct, folder.write("a.c", "x")); }

    /// That there is a page of an item that could not be read, whatever the reason.
    void expectFailure(const std::string& conduct) {
        const PreviewDocument document = preview(conduct);
        EXPECT_EQ(document.width, 520) << conduct;
        EXPECT_EQ(document.height, 380) << conduct;
        EXPECT_TRUE(messageOf(document.html).starts_with("Quillmar couldn&#39;t read this item. ")) << conduct;
    }

    TemporaryFolder folder;
    CountingIcons icons;

private:
    std::size_t descriptors_ = openDescriptors();
};

TEST_F(HostileWorkerTest, takesWhatIsADocument) {
    const PreviewDocument document = preview("sends a document");
    EXPECT_EQ(document.html, "page");
    EXPECT_EQ(document.width, 100);
}

TEST_F(HostileWorkerTest, saysThatAWorkerHasFailed) { EXPECT_EQ(messageOf(preview("fails").html), stopped); }

TEST_F(HostileWorkerTest, saysThatAWorkerHasCrashed) { EXPECT_EQ(messageOf(preview("crashes").html), stopped); }

TEST_F(HostileWorkerTest, saysThatAWorkerHasEndedWithoutAWord) {
    EXPECT_EQ(messageOf(preview("says nothing").html), stopped);
}

TEST_F(HostileWorkerTest, saysSoWheneverAWorkerHasCrashed) {
    // A socket closes before its process has ended.
    constexpr int times = 100;
    int failures = 0;
    for (int i = 0; i < times; ++i) failures += messageOf(preview("crashes").html) == stopped ? 1 : 0;
    EXPECT_EQ(failures, times);
}

TEST_F(HostileWorkerTest, saysThatAWorkerWasKilledWithinItsDocument) {
    EXPECT_EQ(messageOf(preview("dies within a document").html), stopped);
}

TEST_F(HostileWorkerTest, saysThatProcessorTimeHasRunOut) {
    EXPECT_EQ(messageOf(preview("takes much processor time").html), tookTooLong);
}

TEST_F(HostileWorkerTest, saysThatAWorkerWithoutMemoryHasStopped) {
    const std::string html = preview("takes much memory").html;
    EXPECT_EQ(messageOf(html), isMemoryLimited ? stopped : "");
    EXPECT_EQ(html == "enough memory", !isMemoryLimited);
}

TEST_F(HostileWorkerTest, makesAPageOfTheItemsIconForAWorkerThatFails) {
    const FileURL url = folder.write("a.c", "x");
    const PreviewDocument document = preview("fails", url);
    EXPECT_EQ(icons.askedFiles, std::vector<std::string>{url.path()});
    EXPECT_EQ(between(document.html, "<title>", "</title>"), "a.c");
    EXPECT_EQ(*document.attachments.at("asset-0").data, "icon of " + url.path());
}

TEST_F(HostileWorkerTest, makesTheNextPreviewAfterAWorkerThatCrashed) {
    EXPECT_EQ(messageOf(preview("crashes").html), stopped);
    const PreviewDocument document = ConfinedPreview().document(folder.write("b.c", "int b;"), nullptr);
    EXPECT_NE(document.html.find("int b;"), std::string::npos);
}

TEST_F(HostileWorkerTest, takesNothingThatIsNotOfTheForm) {
    for (const char* conduct : {"says garbage", "says an empty message", "asks what there is not",
                                "sends half a document", "sends a document without its page"})
        expectFailure(conduct);
}

TEST_F(HostileWorkerTest, takesNoMessageThatIsTooLong) {
    for (const char* conduct : {"announces four gigabytes", "announces too much", "announces much"})
        expectFailure(conduct);
}

TEST_F(HostileWorkerTest, takesNoAttachmentWhoseNameLeadsElsewhere) {
    expectFailure("climbs out");
    expectFailure("names its page");
    EXPECT_EQ(*preview("names an attachment").attachments.at("asset-0").data, "x");
}

TEST_F(HostileWorkerTest, givesNoIconsOfOtherFiles) {
    EXPECT_EQ(preview("asks for icons of others").html, "-;-;-;-;-;-;-;-;-;");
    EXPECT_EQ(icons.askedFiles, std::vector<std::string>{});
}

TEST_F(HostileWorkerTest, givesIconsOfTheItemAndWhatIsInIt) {
    const std::string path = folder.makeFolder("Garden").path();
    EXPECT_EQ(preview("asks for icons within", folder.url("Garden")).html,
              "icon of " + path + ";icon of " + path + "/a;icon of " + path + "/a/b;");
}

TEST_F(HostileWorkerTest, givesIconsOfEverythingInTheRoot) {
    const PreviewDocument document = preview("asks for icons within", FileURL::root());
    EXPECT_EQ(document.html, "icon of /;icon of /a;icon of /a/b;");
}

TEST_F(HostileWorkerTest, givesOnlySoManyIcons) {
    EXPECT_EQ(preview("counts icons").html, "4096");
    EXPECT_EQ(icons.askedTypes.size(), 4'096U);
}

TEST_F(HostileWorkerTest, givesOnlySoManyBytesOfImages) {
    const FileURL url = folder.write("a.md", "");
    std::filesystem::resize_file(url.path(), 8'388'608); // the most of one; 32 of them are the most of a page
    const std::string html = preview("counts images", url).html;
    EXPECT_TRUE(html == "32" || messageOf(html) == tookTooLong) << html; // as on a machine that is very busy
}

TEST_F(HostileWorkerTest, givesNoImageOfMoreThanTheLimitWhateverIsAsked) {
    const FileURL url = folder.write("a.md", "");
    std::filesystem::resize_file(url.path(), 8'388'609);
    EXPECT_EQ(preview("counts images", url).html, "0");
}

TEST_F(HostileWorkerTest, givesNoImageOfMoreThanIsAsked) {
    EXPECT_EQ(preview("asks for images of odd sizes", folder.write("a.md", "abcd")).html, "-;-;-;-;abcd;abcd;");
}

TEST_F(HostileWorkerTest, givesImagesForMarkdownOnly) {
    const FileURL url = folder.write("a.png", "");
    std::filesystem::resize_file(url.path(), 8'388'608);
    EXPECT_EQ(preview("counts images", url).html, "0");
}

TEST_F(HostileWorkerTest, givesNothingThatIsNoFile) {
    EXPECT_EQ(preview("asks for odd images").html, "-;-;-;-;-;-;-;");
}

TEST_F(HostileWorkerTest, saysThatNoWorkerCanBeStarted) {
    const FileURL url = folder.write("a.c", "x");
    for (const std::string& program : {folder.url("gone").path(), url.path(), folder.path().string(), ""s}) {
        const PreviewDocument document = ConfinedPreview(program).document(url, &icons);
        EXPECT_EQ(messageOf(document.html),
                  "Quillmar couldn&#39;t read this item. No program could be started that reads it.");
    }
}

TEST_F(HostileWorkerTest, takesNothingFromProgramsThatAreNoWorkers) {
    for (const char* program : {"/bin/true", "/bin/false"}) {
        const PreviewDocument document = ConfinedPreview(program).document(folder.write("a.c", "x"), nullptr);
        EXPECT_TRUE(messageOf(document.html).starts_with("Quillmar couldn&#39;t read this item. ")) << program;
    }
}

} // namespace
} // namespace quillmar
