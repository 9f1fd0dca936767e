#include "QuickPreview.h"

#include "Markdown/MarkdownLimits.h"
#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/Pages.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

// The way of a Markdown document through the router; QuickPreviewTests.cpp has the other ways.

namespace quillmar {
namespace {

using namespace std::string_literals;

constexpr std::string_view articleStart = "<article class=\"markdown-body\">";

std::string articleOf(const PreviewDocument& document) {
    return between(document.html, articleStart, "</article>\n</body>\n</html>");
}

std::string paragraph(std::string_view html) { return std::string("<p>").append(html).append("</p>\n"); }

bool isMarkdownPage(const PreviewDocument& document) {
    return document.width == 900 && document.height == 900 &&
           document.html.find("<body class=\"markdown\">\n" + std::string(articleStart)) != std::string::npos;
}

bool isErrorPage(const PreviewDocument& document) { return document.width == 520 && document.height == 380; }

class MarkdownPreviewTest : public testing::Test {
protected:
    PreviewDocument preview(const std::string& name, DataView content) const {
        return QuickPreview::document(folder.write(name, content), nullptr);
    }

    /// What the page of a document with this content holds.
    std::string article(DataView content) const { return articleOf(preview("notes.md", content)); }

    TemporaryFolder folder;
};

TEST_F(MarkdownPreviewTest, showsAnArticle) {
    const auto document = preview("notes.md", "# Beds\n\nBeans and *peas*.\n");
    EXPECT_TRUE(isMarkdownPage(document));
    EXPECT_EQ(articleOf(document), "<h1 id=\"beds\">Beds</h1>\n<p>Beans and <em>peas</em>.</p>\n");
    EXPECT_TRUE(document.attachments.empty());
}

TEST_F(MarkdownPreviewTest, isOneWholePage) {
    const auto document = preview("notes.md", "Beans.\n");
    EXPECT_TRUE(document.html.starts_with("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"));
    EXPECT_TRUE(document.html.ends_with("<body class=\"markdown\">\n<article class=\"markdown-body\">"
                                        "<p>Beans.</p>\n</article>\n</body>\n</html>"));
}

TEST_F(MarkdownPreviewTest, isTitledWithTheNameOfTheFile) {
    const auto document = preview("<b> & \"notes\" \xFF.md", "---\ntitle: Other\n---\n# Another\n");
    EXPECT_EQ(between(document.html, "<title>", "</title>"), "&lt;b&gt; &amp; &quot;notes&quot; \uFFFD.md");
}

TEST_F(MarkdownPreviewTest, asksForNoIcon) {
    CountingIcons icons;
    QuickPreview::document(folder.write("notes.md", "Beans.\n"), &icons);
    EXPECT_TRUE(icons.askedTypes.empty());
    EXPECT_TRUE(icons.askedFiles.empty());
}

TEST_F(MarkdownPreviewTest, isForEightExtensions) {
    for (const auto* extension : {"md", "markdown", "mdown", "mkd", "mkdn", "mdwn", "mdtext", "mdx"})
        EXPECT_TRUE(isMarkdownPage(preview(std::string("notes.") + extension, "x"))) << extension;
}

TEST_F(MarkdownPreviewTest, isForTheseExtensionsWhateverTheType) {
    folder.write("notes.txt", "x");
    for (const auto* extension : {"md", "markdown", "mdown", "mkd", "mkdn", "mdwn", "mdtext", "mdx", "MD"}) {
        const std::string name = std::string("link.") + extension;
        std::filesystem::create_symlink("notes.txt", folder.path() / name);
        EXPECT_TRUE(isMarkdownPage(QuickPreview::document(folder.url(name), nullptr))) << extension;
    }
}

TEST_F(MarkdownPreviewTest, isForExtensionsInAnyCase) {
    for (const auto* name : {"README.MD", "Notes.MarkDown", "notes.mDx"})
        EXPECT_TRUE(isMarkdownPage(preview(name, "x"))) << name;
}

TEST_F(MarkdownPreviewTest, isForEveryFileOfTheMarkdownType) {
    EXPECT_TRUE(isMarkdownPage(preview("notes.guide", "x")));
    EXPECT_TRUE(isMarkdownPage(preview("notes.GUIDE", "x")));
}

TEST_F(MarkdownPreviewTest, isForNothingElse) {
    for (const auto* name : {"notes.txt", "md", ".md", "notes.md.txt", "notes.md~", "notes.md.", "notes.mds"})
        EXPECT_FALSE(isMarkdownPage(preview(name, "x"))) << name;
}

TEST_F(MarkdownPreviewTest, isForLinksByTheirOwnExtensionOrTheirTarget) {
    folder.write("notes.txt", "*Beans*");
    folder.write("notes.md", "*Peas*");
    std::filesystem::create_symlink("notes.txt", folder.path() / "beans.md");
    std::filesystem::create_symlink("notes.md", folder.path() / "peas");
    const auto beans = QuickPreview::document(folder.url("beans.md"), nullptr);
    const auto peas = QuickPreview::document(folder.url("peas"), nullptr);
    EXPECT_EQ(articleOf(beans), paragraph("<em>Beans</em>"));
    EXPECT_EQ(between(beans.html, "<title>", "</title>"), "beans.md");
    EXPECT_TRUE(isMarkdownPage(beans));
    // Its extension does not say so, but what it leads to is of the type.
    EXPECT_TRUE(isMarkdownPage(peas));
    EXPECT_EQ(between(peas.html, "<title>", "</title>"), "peas");
}

TEST_F(MarkdownPreviewTest, looksAtTheNameBeforeTheContent) {
    EXPECT_TRUE(isMarkdownPage(preview("archive.md", "PK\5\6" + std::string(18, '\0'))));
    EXPECT_TRUE(isMarkdownPage(preview("page.md", "\x1F\x8B\x08\0"s)));
}

TEST_F(MarkdownPreviewTest, mayBeOfNothing) {
    const auto document = preview("notes.md", "");
    EXPECT_TRUE(isMarkdownPage(document));
    EXPECT_EQ(articleOf(document), "");
    EXPECT_EQ(article("\n \n\t\n"), "");
}

TEST_F(MarkdownPreviewTest, showsADocumentOfExactlyTheLimit) {
    ASSERT_EQ(MarkdownLimits::maxDocumentBytes, 2U * 1024U * 1024U);
    EXPECT_TRUE(article(std::string(2'097'151, 'x') + "y") == paragraph(std::string(2'097'151, 'x') + "y"));
}

TEST_F(MarkdownPreviewTest, showsTheBeginningOfALongerDocument) {
    EXPECT_TRUE(article(std::string(2'097'152, 'x') + "y\n\nz") == paragraph(std::string(2'097'152, 'x')));
}

TEST_F(MarkdownPreviewTest, repairsACharacterThatTheLimitCuts) {
    EXPECT_TRUE(article(std::string(2'097'151, 'x') + "é") ==
                paragraph(std::string(2'097'151, 'x') + "\uFFFD"));
}

TEST_F(MarkdownPreviewTest, dropsAByteOrderMark) {
    EXPECT_EQ(article("\uFEFF# Beds"), "<h1 id=\"beds\">Beds</h1>\n");
    EXPECT_EQ(article("\uFEFF---\na: b\n---\nBeans."),
              "<table class=\"front-matter\">\n<tr><th>a</th><td>b</td></tr>\n</table>\n" +
                  paragraph("Beans."));
    EXPECT_EQ(article("\uFEFF\uFEFFBeans."), paragraph("\uFEFFBeans."));
}

TEST_F(MarkdownPreviewTest, countsAByteOrderMarkToTheLimit) {
    EXPECT_TRUE(article("\uFEFF" + std::string(2'097'152, 'x')) == paragraph(std::string(2'097'149, 'x')));
}

TEST_F(MarkdownPreviewTest, repairsWhatIsNotUTF8) {
    EXPECT_EQ(article("a\xFF*b\xC3*\xED\xA0\x80 \xF0\x9F"),
              paragraph("a\uFFFD<em>b\uFFFD</em>\uFFFD\uFFFD\uFFFD \uFFFD"));
    EXPECT_EQ(article("[a](b\xFF)"), paragraph("<a href=\"b\uFFFD\">a</a>"));
}

TEST_F(MarkdownPreviewTest, isNeverBinary) { EXPECT_EQ(article("a\0b"s), paragraph("a\0b"s)); }

TEST_F(MarkdownPreviewTest, saysThatADocumentIsGone) {
    CountingIcons icons;
    icons.hasFileIcons = false;
    const auto document = QuickPreview::document(folder.url("gone.md"), &icons);
    EXPECT_TRUE(isErrorPage(document));
    EXPECT_EQ(messageOf(document.html),
              "Quillmar couldn&#39;t read this item. There is no file named “gone.md”.");
    EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.data"});
}

TEST_F(MarkdownPreviewTest, saysThatADocumentMayNotBeRead) {
    const auto url = folder.write("secret.md", "Beans.");
    ::chmod(url.path().c_str(), 0);
    const auto document = QuickPreview::document(url, nullptr);
    if (::geteuid() == 0) { // whom permissions do not bind
        EXPECT_TRUE(isMarkdownPage(document));
        return;
    }
    EXPECT_TRUE(isErrorPage(document));
    EXPECT_EQ(messageOf(document.html),
              "Quillmar couldn&#39;t read this item. You don&#39;t have permission to view “secret.md”.");
}

TEST_F(MarkdownPreviewTest, saysThatADocumentCannotBeRead) {
    // The memory of this process: a regular file, and nothing is at its beginning.
    std::filesystem::create_symlink("/proc/self/mem", folder.path() / "memory.md");
    const auto document = QuickPreview::document(folder.url("memory.md"), nullptr);
    EXPECT_TRUE(isErrorPage(document));
    EXPECT_NE(messageOf(document.html).find("“memory.md” could not be read"), std::string::npos);
}

TEST_F(MarkdownPreviewTest, describesANamedPipeWithoutOpeningIt) {
    ASSERT_EQ(::mkfifo((folder.path() / "pipe.md").c_str(), 0600), 0);
    const auto document = QuickPreview::document(folder.url("pipe.md"), nullptr);
    EXPECT_TRUE(isErrorPage(document));
    EXPECT_NE(messageOf(document.html).find("“pipe.md” is a named pipe"), std::string::npos);
}

TEST_F(MarkdownPreviewTest, attachesTheImagesOfTheDocument) {
    folder.makeFolder("pictures");
    folder.write("plan.png", "plan");
    folder.write("pictures/my rose.JPG", "rose");
    const auto document =
        preview("notes.md", "![Plan](plan.png) ![](pictures/my%20rose.JPG \"Rose\")\n\n![Plan](./plan.png)\n");
    EXPECT_EQ(articleOf(document), paragraph("<img src=\"cid:asset-0\" alt=\"Plan\"> "
                                             "<img src=\"cid:asset-1\" alt=\"\" title=\"Rose\">") +
                                       paragraph("<img src=\"cid:asset-2\" alt=\"Plan\">"));
    ASSERT_EQ(document.attachments.size(), 3U);
    EXPECT_EQ(*document.attachments.at("asset-0").data, "plan");
    EXPECT_EQ(document.attachments.at("asset-0").typeIdentifier, "public.png");
    EXPECT_EQ(*document.attachments.at("asset-1").data, "rose");
    EXPECT_EQ(document.attachments.at("asset-1").typeIdentifier, "public.jpeg");
    EXPECT_EQ(document.attachments.at("asset-2").data, document.attachments.at("asset-0").data);
}

TEST_F(MarkdownPreviewTest, attachesTheImagesOfRawHTML) {
    folder.write("plan.png", "plan");
    const auto document = preview("notes.md", "<div>\n<img width=\"9\" src='plan.png'>\n</div>\n\n"
                                              "A <IMG SRC=\"plan.png\" alt=\"Plan\">.\n");
    EXPECT_EQ(articleOf(document), "<div>\n<img width=\"9\" src='cid:asset-0'>\n</div>\n" +
                                       paragraph("A <IMG SRC=\"cid:asset-1\" alt=\"Plan\">."));
    EXPECT_EQ(document.attachments.size(), 2U);
    EXPECT_EQ(document.attachments.at("asset-1").typeIdentifier, "public.png");
}

TEST_F(MarkdownPreviewTest, looksForImagesFromTheFolderOfTheDocument) {
    folder.makeFolder("docs");
    folder.write("plan.png", "the outer plan");
    folder.write("docs/plan.png", "the inner plan");
    const auto document = preview("docs/notes.md", "![](plan.png)![](../plan.png)");
    EXPECT_EQ(*document.attachments.at("asset-0").data, "the inner plan");
    EXPECT_EQ(*document.attachments.at("asset-1").data, "the outer plan");
}

TEST_F(MarkdownPreviewTest, looksForImagesFromTheFolderOfALink) {
    folder.makeFolder("docs");
    folder.write("plan.png", "beside the link");
    folder.write("docs/plan.png", "beside its target");
    folder.write("docs/notes.md", "![](plan.png)");
    std::filesystem::create_symlink("docs/notes.md", folder.path() / "link.md");
    const auto document = QuickPreview::document(folder.url("link.md"), nullptr);
    EXPECT_EQ(*document.attachments.at("asset-0").data, "beside the link");
}

TEST_F(MarkdownPreviewTest, showsThatAnImageIsMissing) {
    const auto document = preview("notes.md", "![The *plan*](plan.png) ![](rose.png)\n\n"
                                              "<div><img src=\"plan.png\" alt=\"Plan\"></div>\n");
    EXPECT_EQ(articleOf(document), paragraph("<span class=\"missing-image\" title=\"plan.png\">The plan</span> "
                                             "<span class=\"missing-image\" title=\"rose.png\">Image</span>") +
                                       "<div><span class=\"missing-image\">Plan</span></div>\n");
    EXPECT_TRUE(document.attachments.empty());
}

TEST_F(MarkdownPreviewTest, leavesImagesFromElsewhereAsTheyAre) {
    const auto document =
        preview("notes.md", "![a](https://example.com/a.png)![b](data:image/gif;base64,R0lG)");
    EXPECT_EQ(articleOf(document), paragraph("<img src=\"https://example.com/a.png\" alt=\"a\">"
                                             "<img src=\"data:image/gif;base64,R0lG\" alt=\"b\">"));
    EXPECT_TRUE(document.attachments.empty());
}

TEST_F(MarkdownPreviewTest, refusesImagesByURL) {
    folder.write("plan.png", "plan");
    const auto document = preview("notes.md", "![a](file://" + folder.url("plan.png").path() + ")");
    EXPECT_TRUE(document.attachments.empty());
    EXPECT_TRUE(articleOf(document).starts_with("<p><span class=\"missing-image\""));
}

TEST_F(MarkdownPreviewTest, isAlwaysTheSame) {
    folder.write("plan.png", "plan");
    const std::string content = "# A\n\n# A\n\n![a](plan.png)[^1] <b>x</b>\n\n[r]: plan.png\n\n![r] ![r][]\n";
    const auto first = preview("notes.md", content);
    const auto second = preview("notes.md", content);
    EXPECT_EQ(first.html, second.html);
    ASSERT_EQ(first.attachments.size(), second.attachments.size());
    for (const auto& [name, attachment] : first.attachments) {
        EXPECT_EQ(*attachment.data, *second.attachments.at(name).data);
        EXPECT_EQ(attachment.typeIdentifier, second.attachments.at(name).typeIdentifier);
    }
}

} // namespace
} // namespace quillmar
