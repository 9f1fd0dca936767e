#include "Markdown/SafeURL.h"

#include "Markdown/Lines.h"
#include "Support/HTML.h"

#include <algorithm>
#include <array>

namespace quillmar::Markdown {
namespace {

constexpr std::array<std::string_view, 6> allowedSchemes{"http", "https", "mailto",
                                                         "ftp",  "tel",   "x-apple.systempreferences"};

/// What goes nowhere.
constexpr std::string_view unsafeURL = "#";

constexpr std::string_view encodedSpace = "%20";

/// ASCII is enough: the one other character whose lower case is in ASCII, the Kelvin sign, is in no scheme.
bool equalsLowercased(std::string_view text, std::string_view lowercase) {
    return std::equal(text.begin(), text.end(), lowercase.begin(), lowercase.end(), [](char c, char lower) {
        return (c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c) == lower;
    });
}

/// The trimmed \p url, or what stands for an unsafe one.
std::string_view checked(std::string_view url) {
    const std::string_view destination = trimmed(url);
    const std::size_t colon = destination.find(':');
    if (colon == destination.npos) return destination;
    const std::string_view before = destination.substr(0, colon);
    const bool isScheme =
        std::none_of(before.begin(), before.end(), [](char c) { return c == '/' || c == '#' || c == '?'; });
    if (!isScheme) return destination; // the colon belongs to a path, a fragment or a query
    const bool isAllowed =
        std::any_of(allowedSchemes.begin(), allowedSchemes.end(),
                    [before](std::string_view scheme) { return equalsLowercased(before, scheme); });
    return isAllowed ? destination : unsafeURL;
}

} // namespace

std::string safeURL(std::string_view url) {
    std::string_view rest = checked(url);
    std::string safe;
    for (std::size_t space = rest.find(' '); space != rest.npos; space = rest.find(' ')) {
        safe.append(rest.substr(0, space)).append(encodedSpace);
        rest.remove_prefix(space + 1);
    }
    return safe.append(rest);
}

void appendSafeURL(std::string& html, std::string_view url) {
    const std::string_view destination = checked(url);
    if (destination.find(' ') == destination.npos) return HTML::appendEscaped(html, destination);
    HTML::appendEscaped(html, safeURL(url));
}

} // namespace quillmar::Markdown
