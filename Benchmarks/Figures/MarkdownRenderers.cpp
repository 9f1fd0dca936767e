#include "Benchmarks/Figures/MarkdownRenderers.h"

#include "Benchmarks/Figures/Md4c.h"
#include "Markdown/MarkdownRenderer.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace quillmar::MarkdownRenderers {

std::size_t ours(const std::string& markdown) { return MarkdownRenderer{}.render(markdown).size(); }

std::size_t cmark(const std::string& markdown) {
    cmark_gfm_core_extensions_ensure_registered();
    const std::unique_ptr<cmark_parser, void (*)(cmark_parser*)> parser(cmark_parser_new(CMARK_OPT_UNSAFE),
                                                                        cmark_parser_free);
    for (const char* extension : {"table", "strikethrough", "autolink", "tasklist"})
        cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(extension));
    cmark_parser_feed(parser.get(), markdown.data(), markdown.size());
    const std::unique_ptr<cmark_node, void (*)(cmark_node*)> document(cmark_parser_finish(parser.get()),
                                                                      cmark_node_free);
    const std::unique_ptr<char, void (*)(void*)> html(
        cmark_render_html(document.get(), CMARK_OPT_UNSAFE, cmark_parser_get_syntax_extensions(parser.get())),
        std::free);
    return std::string_view(html.get()).size();
}

std::size_t md4c(const std::string& markdown) { return md4cHTML(markdown).size(); }

} // namespace quillmar::MarkdownRenderers
