#pragma once

#include "Markdown/ImageResolver.h"

#include <string>

namespace quillmar {

/// The door of the Markdown room: a document's text in, an HTML fragment out. Every text yields HTML, and the
/// same text the same HTML; time and memory grow with the text. Raw HTML of the document is in the fragment
/// after a filter that cannot promise that it is inert: show the page with scripts off.
struct MarkdownRenderer {
    ImageResolver resolveImage; ///< may be empty: then no local image is found

    /// \p markdown is UTF-8; ill-formed bytes are copied as they are.
    std::string render(std::string markdown) const;
};

} // namespace quillmar
