#include "QuillmarQuickLook/PreviewWriter.h"

#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace quillmar::PreviewWriter {
namespace {

constexpr const char* head = "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n";
constexpr const char* policy = "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
                               "img-src data: cid: http: https:; "
                               "style-src 'unsafe-inline'\">\n";

/// A reply of \p html behind the usual head with two pictures: asset-0 a PNG, asset-1 of no known MIME type.
PreviewReply replyOf(const std::string& html) {
    return {UniformType::withIdentifier("public.html").value(),
            {900, 612.5},
            [html = head + html](PreviewReply& reply) -> DataView {
                const auto add = [&](const char* name, const char* data, const char* type) {
                    reply.attachments.insert_or_assign(
                        name, PreviewReplyAttachment{std::make_shared<const Data>(data),
                                                     UniformType::withIdentifier(type).value()});
                };
                add("asset-0", "foo", "public.png");
                add("asset-1", "bar", "public.folder");
                return html;
            }};
}

std::string pageOf(const std::string& html) {
    PreviewReply reply = replyOf(html);
    return selfContainedPage(reply);
}

TEST(PreviewWriter, putsAPolicyBehindTheCharacterSet) {
    EXPECT_EQ(pageOf("<p>x</p>"), std::string(head) + policy + "<p>x</p>");
}

TEST(PreviewWriter, replacesReferencesByDataURLs) {
    EXPECT_EQ(pageOf("<img src=\"cid:asset-0\" alt=\"\"><img src=\"cid:asset-1\"><img src=\"cid:asset-0\">"),
              std::string(head) + policy +
                  "<img src=\"data:image/png;base64,Zm9v\" alt=\"\">"
                  "<img src=\"data:application/octet-stream;base64,YmFy\">"
                  "<img src=\"data:image/png;base64,Zm9v\">");
}

TEST(PreviewWriter, leavesWhatOnlyLooksLikeAReference) {
    for (const std::string html :
         {"cid:asset-0", "src=&quot;cid:asset-0&quot;", "<img src=\"cid:asset-10\">", "<img src=\"cid:\">"})
        EXPECT_EQ(pageOf(html), head + std::string(policy) + html);
}

TEST(PreviewWriter, replacesReferencesInEitherQuotationMarks) {
    EXPECT_EQ(pageOf("<img SRC = 'cid:asset-0'>"),
              std::string(head) + policy + "<img SRC = 'data:image/png;base64,Zm9v'>");
}

TEST(PreviewWriter, leavesReferencesThatThePageHasNoRoomFor) {
    PreviewReply reply = replyOf("<img src=\"cid:asset-0\"><img src=\"cid:asset-0\"><img src=\"cid:asset-0\">");
    const std::string url = "data:image/png;base64,Zm9v";
    std::string expected = std::string(head) + policy;
    for (const std::string& source : {url, url, std::string("cid:asset-0")})
        expected.append("<img src=\"").append(source).append("\">");
    EXPECT_EQ(selfContainedPage(reply, 2 * url.size()), expected);
}

TEST(PreviewWriter, turnsElementsThatNoPolicyStopsIntoText) {
    EXPECT_EQ(pageOf("</head><p><META http-equiv=refresh><link rel=prefetch><base href=a><iframe src=b></p>"),
              std::string(head) + policy +
                  "</head><p>&lt;META http-equiv=refresh>&lt;link rel=prefetch>&lt;base href=a>&lt;iframe "
                  "src=b></p>");
}

TEST(PreviewWriter, leavesOurHeadAndOtherElementsAsTheyAre) {
    const std::string html =
        "<meta name=\"color-scheme\" content=\"light dark\">\n<title>a</title></head><body><main>"
        "<b>x</b><br></main><p>1 < 2</p></body>";
    EXPECT_EQ(pageOf(html), head + std::string(policy) + html);
}

TEST(PreviewWriter, turnsForeignElementsOfTheHeadIntoTextToo) {
    EXPECT_EQ(pageOf("<title>a</title><meta http-equiv=refresh></head>"),
              std::string(head) + policy + "<title>a</title>&lt;meta http-equiv=refresh></head>");
}

TEST(PreviewWriter, putsThePolicyBeforePagesOfOtherForms) {
    for (const std::string html :
         {"", "x", "<p>", "<!DOCTYPE html>\n<html>\n", "<!DOCTYPE html>\n<html>\n<head>\n<p>"}) {
        PreviewReply reply(UniformType::withIdentifier("public.html").value(), {.width = 1, .height = 1},
                           [&html](PreviewReply&) -> DataView { return html; });
        EXPECT_EQ(selfContainedPage(reply), std::string(policy) + html);
    }
}

TEST(PreviewWriter, writesAFolderThatOtherProgramsRead) {
    const TemporaryFolder folder;
    PreviewReply reply = replyOf("<img src=\"cid:asset-0\">");
    writeFolder(reply, (folder.path() / "new/place").string());
    EXPECT_EQ(contentsOf(folder.path() / "new/place/index.html"),
              head + std::string("<img src=\"cid:asset-0\">"));
    EXPECT_EQ(contentsOf(folder.path() / "new/place/asset-0"), "foo");
    EXPECT_EQ(contentsOf(folder.path() / "new/place/asset-1"), "bar");
    EXPECT_EQ(contentsOf(folder.path() / "new/place/preview.json"),
              "{\"width\":900,\"height\":612.5,"
              "\"attachments\":{\"asset-0\":\"public.png\",\"asset-1\":\"public.folder\"}}\n");
}

TEST(PreviewWriter, saysWhereItCannotWrite) {
    const TemporaryFolder folder;
    folder.write("file", "");
    PreviewReply reply = replyOf("");
    const auto messageOf = [](const auto& write) -> std::string {
        try {
            write();
        } catch (const WriteError& error) {
            return error.what();
        }
        return "none";
    };
    const std::string file = (folder.path() / "file").string();
    EXPECT_EQ(messageOf([&] { writeFolder(reply, file + "/sub"); }),
              "cannot write to “" + file + "/sub”: Not a directory");
    EXPECT_EQ(messageOf([&] { writePage(reply, file + "/page.html"); }),
              "cannot write to “" + file + "/page.html”: Not a directory");
    EXPECT_EQ(messageOf([&] { writePage(reply, "/dev/full"); }),
              "cannot write to “/dev/full”: No space left on device");
}

} // namespace
} // namespace quillmar::PreviewWriter
