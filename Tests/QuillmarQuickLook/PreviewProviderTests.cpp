#include "QuillmarQuickLook/PreviewProvider.h"

#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(PreviewProvider, answersWithHTMLOfTheDocumentsSize) {
    const TemporaryFolder folder;
    const PreviewReply reply = PreviewProvider(nullptr, false).providePreview({folder.write("a.c", "x")});
    EXPECT_EQ(reply.contentType.identifier(), "public.html");
    EXPECT_EQ(reply.contentSize.width, 900);
    EXPECT_EQ(reply.contentSize.height, 700);
}

TEST(PreviewProvider, makesDataAndAttachmentsWhenAsked) {
    const TemporaryFolder folder;
    CountingIcons icons;
    PreviewReply reply = PreviewProvider(&icons, false).providePreview({folder.write("a.c", "x")});
    EXPECT_TRUE(reply.attachments.empty());
    EXPECT_EQ(reply.stringEncoding, "");
    EXPECT_TRUE(reply.data().starts_with("<!DOCTYPE html>"));
    EXPECT_EQ(reply.stringEncoding, "UTF-8");
    ASSERT_EQ(reply.attachments.size(), 1U);
    EXPECT_EQ(reply.attachments.at("asset-0").contentType.identifier(), "public.png");
    EXPECT_EQ(*reply.attachments.at("asset-0").data, "icon of public.c-source");
}

TEST(PreviewProvider, logsTwoMessagesAndKeepsTheNameOutOfAFile) {
    const TemporaryFolder folder;
    const auto url = folder.write("secret.c", "x");
    testing::internal::CaptureStderr();
    PreviewReply reply = PreviewProvider(nullptr, true).providePreview({url});
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(log, "app.quillmar.QuillmarQuickLook [preview] Previewing <private>\n"
                   "app.quillmar.QuillmarQuickLook [preview] Built " +
                       std::to_string(reply.data().size()) + " bytes of HTML with 0 attachments\n");
}

TEST(PreviewProvider, logsNothingUnlessAsked) {
    const TemporaryFolder folder;
    const auto url = folder.write("a.c", "x");
    testing::internal::CaptureStderr();
    PreviewProvider(nullptr, false).providePreview({url});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(PreviewProvider, repliesWithTheDocumentThatItIsGivenAMakerOf) {
    CountingIcons icons;
    std::vector<std::string> made;
    const auto makeDocument = [&](const FileURL& url, IconSource* source) {
        EXPECT_EQ(source, &icons);
        made.push_back(url.path());
        PreviewDocument document{.html = "page", .attachments = {}, .width = 12, .height = 34};
        document.attachments["asset-0"] = {.data = std::make_shared<const Data>("x"),
                                           .typeIdentifier = "public.jpeg"};
        document.attachments["asset-1"] = {.data = std::make_shared<const Data>("y"),
                                           .typeIdentifier = "of nobody's making"};
        return document;
    };
    const PreviewProvider provider(&icons, false, makeDocument);
    PreviewReply reply = provider.providePreview({FileURL::standardized("/gone", FileURL::root())});
    EXPECT_EQ(reply.contentSize.width, 12);
    EXPECT_EQ(reply.contentSize.height, 34);
    EXPECT_EQ(reply.data(), "page");
    EXPECT_EQ(reply.attachments.at("asset-0").contentType.identifier(), "public.jpeg");
    EXPECT_EQ(reply.attachments.at("asset-1").contentType.identifier(), "public.data");
    EXPECT_EQ(made, std::vector<std::string>{"/gone"});
}

TEST(PreviewProvider, makesADocumentForEachRequest) {
    int made = 0;
    const auto makeDocument = [&made](const FileURL&, IconSource*) {
        ++made;
        return PreviewDocument{.html = std::to_string(made), .attachments = {}, .width = 1, .height = 1};
    };
    const PreviewProvider provider(nullptr, false, makeDocument);
    PreviewReply first = provider.providePreview({FileURL::root()});
    PreviewReply second = provider.providePreview({FileURL::root()});
    EXPECT_EQ(second.data(), "2");
    EXPECT_EQ(first.data(), "1");
    EXPECT_EQ(made, 2);
}

} // namespace
} // namespace quillmar
