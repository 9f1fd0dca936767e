#pragma once

#include "QuillmarQuickLook/PreviewReply.h"

#include <cstddef>
#include <stdexcept>
#include <string>

/// Puts a reply where other programs find it.
namespace quillmar::PreviewWriter {

/// Output that cannot be written. `what()` is one sentence with the place in it.
class WriteError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Writes the document as it is (`index.html`), every attachment under its name, and `preview.json` with the
/// size and the attachments' types into \p folder, which is made when it is not there. Throws WriteError.
void writeFolder(PreviewReply& reply, const std::string& folder);

/// Writes one page that stands alone to \p path; "-" is standard output. Throws WriteError.
void writePage(PreviewReply& reply, const std::string& path);

/// Bytes of attachments, as data URLs, in a page that stands alone, every reference counted: a line of raw HTML
/// can name a large one again. All images of a Markdown document together are no more.
inline constexpr std::size_t maxAttachmentBytes = 402'653'184;

/// The page that stands alone: attachments as data URLs, and for a browser a policy that lets nothing run and
/// nothing load but pictures. What no policy stops (a refresh, a base, a link, a frame in the body) becomes
/// text. References that would exceed \p maxBytes are left.
std::string selfContainedPage(PreviewReply& reply, std::size_t maxBytes = maxAttachmentBytes);

} // namespace quillmar::PreviewWriter
