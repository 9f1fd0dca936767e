#include "Markdown/MarkdownRenderer.h"

#include "Markdown/MarkdownParser.h"

namespace quillmar {

std::string MarkdownRenderer::render(std::string markdown) const {
    return MarkdownParser(resolveImage).document(std::move(markdown));
}

} // namespace quillmar
