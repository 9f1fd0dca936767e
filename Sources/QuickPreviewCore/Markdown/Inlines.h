#pragma once

#include "Markdown/ImageResolver.h"
#include "Markdown/LinkReferences.h"

#include <memory>
#include <string>
#include <string_view>

namespace quillmar::Markdown {

/// Turns the text of one paragraph, heading or table cell into HTML. Kept for a whole document, so that its
/// memory is used again.
class Inlines {
public:
    /// Both must outlive this object.
    Inlines(LinkReferences& references, const ImageResolver& resolveImage);
    ~Inlines();
    Inlines(const Inlines&) = delete;
    Inlines& operator=(const Inlines&) = delete;

    /// Appends the HTML of \p text.
    void append(std::string& html, std::string_view text);

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace quillmar::Markdown
