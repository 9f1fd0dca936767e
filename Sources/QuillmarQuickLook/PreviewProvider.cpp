#include "QuillmarQuickLook/PreviewProvider.h"

#include "QuickPreview.h"

namespace quillmar {
namespace {

constexpr std::string_view bundleIdentifier = "app.quillmar.QuillmarQuickLook";

UniformType typeOrData(std::string_view identifier) {
    return UniformType::withIdentifier(identifier).value_or(UniformType::withIdentifier("public.data").value());
}

/// Hands out the finished document, which the reply keeps until it goes.
DataView takeData(const PreviewDocument& document, PreviewReply& reply) {
    reply.stringEncoding = "UTF-8";
    for (const auto& [name, attachment] : document.attachments)
        reply.attachments.insert_or_assign(
            name, PreviewReplyAttachment{attachment.data, typeOrData(attachment.typeIdentifier)});
    return document.html;
}

} // namespace

PreviewProvider::PreviewProvider(IconSource* icons, bool isVerbose, MakeDocument makeDocument)
    : icons_(icons), makeDocument_(std::move(makeDocument)), log_(bundleIdentifier, "preview", isVerbose) {}

PreviewDocument PreviewProvider::documentInThisProcess(const FileURL& url, IconSource* icons) {
    return QuickPreview::document(url, icons);
}

PreviewReply PreviewProvider::providePreview(const FilePreviewRequest& request) const {
    log_.debug("Previewing " + Logger::privateText(request.fileURL.lastPathComponent()));
    const auto document = std::make_shared<const PreviewDocument>(makeDocument_(request.fileURL, icons_));
    log_.debug("Built " + std::to_string(document->html.size()) + " bytes of HTML with " +
               std::to_string(document->attachments.size()) + " attachments");
    return {typeOrData("public.html"), {document->width, document->height}, [document](PreviewReply& reply) {
                return takeData(*document, reply);
            }};
}

} // namespace quillmar
