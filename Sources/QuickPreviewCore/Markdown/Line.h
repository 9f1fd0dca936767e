#pragma once

#include "Markdown/Lines.h"
#include "Platform/UTF8.h"

#include <cstddef>
#include <string_view>

namespace quillmar::Markdown {

/// A line, or what the markers before it have left of one, with what every rule asks of it. Asking is free,
/// however often it is asked at however many depths.
class Line {
public:
    explicit Line(std::string_view text) : text_(text) {
        while (indentation_ < text.size() && text[indentation_] == ' ') ++indentation_;
        contentStart_ = indentation_;
        while (contentStart_ < text.size() && (text[contentStart_] == ' ' || text[contentStart_] == '\t'))
            ++contentStart_;
        isBlank_ = contentStart_ == text.size();
        // Only what is not ASCII can be further white space that trimming removes.
        const bool isASCII = isBlank_ || UTF8::isASCII(text[contentStart_]);
        if (!isASCII) contentStart_ = text.size() - trimmedStart(text.substr(contentStart_)).size();
    }

    std::string_view text() const { return text_; }

    /// Leading spaces (U+0020).
    std::size_t indentation() const { return indentation_; }
    /// Nothing but spaces and tabs.
    bool isBlank() const { return isBlank_; }
    /// The text from its first character on that trimming leaves.
    std::string_view content() const { return text_.substr(contentStart_); }
    /// The first byte of `content`; NUL when there is none.
    char first() const { return contentStart_ < text_.size() ? text_[contentStart_] : '\0'; }

    /// Drops \p count leading spaces, which must be there.
    void dropIndentation(std::size_t count) {
        text_.remove_prefix(count);
        indentation_ -= count;
        contentStart_ -= count;
    }

    /// Four spaces make code of a line that would begin anything else.
    static constexpr std::size_t codeIndentation = 4;
    bool isIndentedAsCode() const { return indentation_ >= codeIndentation; }

private:
    std::string_view text_;
    std::size_t indentation_ = 0;
    std::size_t contentStart_ = 0;
    bool isBlank_ = false;
};

} // namespace quillmar::Markdown
