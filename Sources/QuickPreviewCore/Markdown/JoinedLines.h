#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmar::Markdown {

/// The lines of one block, joined by line feeds in the buffer that they come from. Where markers or spaces
/// stood between them they are moved together, over text that has been read.
class JoinedLines {
public:
    /// \p buffer is the document; it must outlive this object, and what `text` gives out.
    explicit JoinedLines(std::string& buffer) : buffer_(buffer) {}

    /// Begins anew with \p line, a view into the buffer behind everything that was added before.
    void start(std::string_view line);
    /// \p line is a view into the buffer, behind everything that was added before, or blank and anywhere.
    void append(std::string_view line);
    /// Appends a line that is dropped again by `dropBlankEnd` unless another follows.
    void appendBlank(std::string_view line);
    void dropBlankEnd() { size_ = sizeToLastText_; }

    std::string_view text() const { return document().substr(begin_, size_); }
    std::string_view document() const { return buffer_; }

private:
    void add(std::string_view line);

    std::string& buffer_;
    std::size_t begin_ = 0;
    std::size_t size_ = 0;
    std::size_t sizeToLastText_ = 0;
};

} // namespace quillmar::Markdown
