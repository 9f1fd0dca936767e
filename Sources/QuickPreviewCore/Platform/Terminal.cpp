#include "Platform/Terminal.h"

#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <unicode/uchar.h>
#include <unistd.h>

namespace quillmar {

bool isTerminal(std::FILE* stream) { return ::isatty(::fileno(stream)) == 1; }

std::string printableLine(std::string_view text) {
    const std::string valid = repairedText(std::string(text));
    std::string line;
    for (std::size_t i = 0; i < valid.size();) {
        const auto [character, length, isWellFormed] = UTF8::codePointAt(valid, i);
        if (u_iscntrl(static_cast<UChar32>(character)) != 0)
            line += '?';
        else
            line.append(valid, i, length);
        i += length;
    }
    return line;
}

} // namespace quillmar
