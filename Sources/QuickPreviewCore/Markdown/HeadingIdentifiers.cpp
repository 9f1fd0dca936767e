#include "Markdown/HeadingIdentifiers.h"

#include "Platform/CharacterClass.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <array>
#include <charconv>
#include <limits>

namespace quillmar {
namespace {

/// What a byte of ASCII becomes in an identifier; NUL: nothing.
constexpr auto identifierBytes = [] {
    std::array<char, 128> table{};
    const auto keep = [&table](std::string_view bytes) {
        for (const char c : bytes) table.at(static_cast<unsigned char>(c)) = c;
    };
    keep("0123456789abcdefghijklmnopqrstuvwxyz-_");
    for (unsigned char upper = 'A'; upper <= 'Z'; ++upper)
        table.at(upper) = static_cast<char>(upper + 'a' - 'A');
    table.at(' ') = '-';
    return table;
}();

/// Appends the identifier of a heading of ASCII that is the first of its text.
void appendBaseOfASCII(std::string& identifier, std::string_view heading) {
    for (const char c : heading) {
        const char byte = identifierBytes[static_cast<unsigned char>(c)];
        if (byte != '\0') identifier.push_back(byte);
    }
}

/// The same of any heading, in lower case.
void appendBase(std::string& identifier, std::string_view heading) {
    std::size_t i = 0;
    while (i < heading.size()) {
        const UTF8::CodePoint character = UTF8::codePointAt(heading, i);
        if (character.value < identifierBytes.size())
            appendBaseOfASCII(identifier, heading.substr(i, 1));
        else if (CharacterClass::isAlphanumeric(character.value))
            identifier.append(heading, i, character.length);
        i += character.length;
    }
}

void appendNumber(std::string& identifier, std::size_t number) {
    std::array<char, std::numeric_limits<std::size_t>::digits10 + 2> text{'-'};
    const auto end = std::to_chars(text.data() + 1, text.data() + text.size(), number).ptr;
    identifier.append(text.data(), end);
}

} // namespace

const std::string& HeadingIdentifiers::slug(std::string_view heading) {
    identifier_.clear();
    std::size_t number = 0;
    if (UTF8::isASCII(heading)) {
        appendBaseOfASCII(identifier_, heading);
        number = bases_.insert(identifier_);
    } else {
        appendBase(identifier_, lowercased(heading));
        number = bases_.insert(canonicalForm(identifier_));
    }
    if (number == timesGiven_.size()) timesGiven_.push_back(0);
    const std::size_t before = timesGiven_[number]++;
    if (before > 0) appendNumber(identifier_, before);
    return identifier_;
}

} // namespace quillmar
