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

} // namespace
} // namespace quillmar
