#include "Markdown/JoinedLines.h"

#include <cstring>

namespace quillmar::Markdown {

void JoinedLines::start(std::string_view line) {
    begin_ = static_cast<std::size_t>(line.data() - buffer_.data());
    size_ = line.size();
    sizeToLastText_ = size_;
}

void JoinedLines::add(std::string_view line) {
    char* end = buffer_.data() + begin_ + size_;
    // The line feed of the last line that was added was here or further on, so there is room.
    const bool isInPlace = line.data() == end + 1 && *end == '\n';
    if (!isInPlace) {
        *end = '\n';
        if (!line.empty()) std::memmove(end + 1, line.data(), line.size());
    }
    size_ += 1 + line.size();
}

void JoinedLines::append(std::string_view line) {
    add(line);
    sizeToLastText_ = size_;
}

void JoinedLines::appendBlank(std::string_view line) { add(line); }

} // namespace quillmar::Markdown
