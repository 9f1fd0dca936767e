#pragma once

#include "Markdown/Line.h"

#include <cstddef>
#include <string_view>

namespace quillmar::Markdown {

/// Tells which ends of one line are thematic breaks ("---", "* * *"). Nested bullets ask this of one line as
/// often as there are bullets in it ("- - - - x"); the line is read once.
class ThematicBreaks {
public:
    /// \p line must outlive this object.
    explicit ThematicBreaks(std::string_view line) : line_(line) {}

    /// \p end is the end of the line, behind any number of markers, or that without white space at its end.
    bool isThematicBreak(const Line& end) {
        return !end.isIndentedAsCode() && mayBeginBreak(end.first()) && isUniform(end.text());
    }

private:
    /// False for a line that begins with a letter or the like: no need to read it to its end.
    static bool mayBeginBreak(char first) {
        const bool isMark = first == '-' || first == '*' || first == '_';
        // White space that trimming keeps (a form feed, U+2028) may stand before the marks.
        const bool mayBeWhiteSpace =
            static_cast<unsigned char>(first) < ' ' || static_cast<unsigned char>(first) >= 0x80;
        return isMark || mayBeWhiteSpace;
    }

    bool isUniform(std::string_view end);
    void read();

    std::string_view line_;
    bool isRead_ = false;
    const char* uniformFrom_ = nullptr; ///< from here on only one of - * _ and white space
    const char* third_ = nullptr; ///< the third such mark, counted from the end; null when there are fewer
};

/// The whole of \p line.
bool isThematicBreak(std::string_view line);

} // namespace quillmar::Markdown
