#include "Markdown/HeadingIdentifiers.h"

#include "Platform/CharacterClass.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

namespace quillmar {
namespace {

/// The identifier of a heading that is the first of its text.
std::string base(std::string_view heading) {
    const std::string text = lowercased(heading);
    std::string identifier;
    identifier.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        if (text[i] >= 'a' && text[i] <= 'z') { // most of a heading, so it is not decoded
            identifier += text[i++];
            continue;
        }
        const UTF8::CodePoint character = UTF8::codePointAt(text, i);
        if (character.value == ' ')
            identifier += '-';
        else if (character.value == '-' || character.value == '_' ||
                 CharacterClass::isAlphanumeric(character.value))
            identifier.append(text, i, character.length);
        i += character.length;
    }
    return identifier;
}

} // namespace

std::string HeadingIdentifiers::slug(std::string_view heading) {
    std::string identifier = base(heading);
    const std::size_t number = bases_.insert(canonicalForm(identifier));
    timesGiven_.resize(bases_.size());
    const std::size_t before = timesGiven_[number]++;
    if (before > 0) identifier.append("-").append(std::to_string(before));
    return identifier;
}

} // namespace quillmar
