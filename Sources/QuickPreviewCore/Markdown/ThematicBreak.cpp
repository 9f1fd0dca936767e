#include "Markdown/ThematicBreak.h"

#include "Platform/CharacterClass.h"
#include "Platform/UTF8.h"

namespace quillmar::Markdown {
namespace {

/// Marks that make a break.
constexpr int enoughMarks = 3;

} // namespace

void ThematicBreaks::read() {
    isRead_ = true;
    std::size_t position = line_.size();
    uniformFrom_ = line_.data() + position;
    char32_t mark = 0;
    int marks = 0;
    while (position > 0) {
        const UTF8::CodePoint character = UTF8::codePointBefore(line_, position);
        if (!CharacterClass::isWhiteSpace(character.value)) {
            if (marks == 0) mark = character.value;
            const bool isMark = mark == U'-' || mark == U'*' || mark == U'_';
            if (!isMark || character.value != mark) return;
            if (++marks == enoughMarks) third_ = line_.data() + position - 1;
        }
        position -= character.length;
        uniformFrom_ = line_.data() + position;
    }
}

/// At least three marks of one kind, and white space.
bool ThematicBreaks::isUniform(std::string_view end) {
    if (!isRead_) read();
    return third_ != nullptr && uniformFrom_ <= end.data() && end.data() <= third_;
}

bool isThematicBreak(std::string_view line) { return ThematicBreaks(line).isThematicBreak(Line(line)); }

} // namespace quillmar::Markdown
