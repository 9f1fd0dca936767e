#include "Markdown/HeadingIdentifiers.h"

#include "Platform/CharacterClass.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

namespace quillmar {
namespace {

/// Appends the identifier of a heading that is the first of its text. Letters outside ASCII are in lower case.
void appendBase(std::string& identifier, std::string_view heading) {
    constexpr char toLower = 'a' - 'A';
    std::size_t i = 0;
    while (i < heading.size()) {
        const char c = heading[i];
        if (c >= 'a' && c <= 'z') { // most of a heading, so it is not decoded
            identifier += c;
            ++i;
            continue;
        }
        const UTF8::CodePoint character = UTF8::codePointAt(heading, i);
        if (c >= 'A' && c <= 'Z')
            identifier += static_cast<char>(c + toLower);
        else if (c == ' ')
            identifier += '-';
        else if (c == '-' || c == '_' || CharacterClass::isAlphanumeric(character.value))
            identifier.append(heading, i, character.length);
        i += character.length;
    }
}

} // namespace

const std::string& HeadingIdentifiers::slug(std::string_view heading) {
    identifier_.clear();
    std::size_t number = 0;
    if (UTF8::isASCII(heading)) {
        appendBase(identifier_, heading);
        number = bases_.insert(identifier_);
    } else {
        appendBase(identifier_, lowercased(heading));
        number = bases_.insert(canonicalForm(identifier_));
    }
    if (number == timesGiven_.size()) timesGiven_.push_back(0);
    const std::size_t before = timesGiven_[number]++;
    if (before > 0) identifier_.append("-").append(std::to_string(before));
    return identifier_;
}

} // namespace quillmar
