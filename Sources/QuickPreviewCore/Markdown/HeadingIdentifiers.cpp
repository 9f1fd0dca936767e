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

void appendNumber(std::string& identifier, std::uint32_t number) {
    std::array<char, std::numeric_limits<std::uint32_t>::digits10 + 2> text{'-'};
    const auto end = std::to_chars(text.data() + 1, text.data() + text.size(), number).ptr;
    identifier.append(text.data(), end);
}

} // namespace

void HeadingIdentifiers::appendSlug(std::string& html, std::string_view heading) {
    const std::size_t start = html.size();
    const auto identifier = [&] { return std::string_view(html).substr(start); };
    std::size_t base = 0;
    if (UTF8::isASCII(heading)) {
        appendBaseOfASCII(html, heading);
        base = bases_.insert(identifier());
    } else {
        appendBase(html, lowercased(heading));
        base = baseOfSpelling(identifier());
    }
    if (base == timesGiven_.size()) timesGiven_.push_back(0);
    const std::uint32_t before = timesGiven_[base]++;
    if (before > 0) appendNumber(html, before);
}

/// The number of a base, which may be spelled in several ways.
std::size_t HeadingIdentifiers::baseOfSpelling(std::string_view identifier) {
    const std::size_t spelling = spellings_.insert(identifier);
    if (spelling == basesOf_.size()) basesOf_.push_back(bases_.insert(canonicalForm(std::string(identifier))));
    return basesOf_[spelling];
}

} // namespace quillmar
