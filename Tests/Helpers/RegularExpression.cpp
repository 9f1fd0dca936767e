#include "Tests/Helpers/RegularExpression.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <utility>

namespace quillmar {
namespace {

icu::UnicodeString fromUTF8(std::string_view text) {
    return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

std::string toUTF8(const icu::UnicodeString& text) {
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

void check(UErrorCode status) {
    if (U_FAILURE(status)) throw std::invalid_argument(u_errorName(status));
}

} // namespace

struct RegularExpression::Pattern {
    std::unique_ptr<icu::RegexPattern> compiled;
};

RegularExpression::RegularExpression(std::string_view pattern, Case letters)
    : pattern_(std::make_unique<Pattern>()) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError where{};
    std::uint32_t options = 0;
    if (letters == Case::ignored) options |= UREGEX_CASE_INSENSITIVE;
    pattern_->compiled.reset(icu::RegexPattern::compile(fromUTF8(pattern), options, where, status));
    check(status);
}

RegularExpression::~RegularExpression() = default;

std::vector<RegularExpression::Match> RegularExpression::find(std::string_view text, std::size_t atMost) const {
    const icu::UnicodeString subject = fromUTF8(text);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::RegexMatcher> matcher(pattern_->compiled->matcher(subject, status));
    check(status);
    matcher->setStackLimit(0, status);
    matcher->setTimeLimit(0, status);
    check(status);

    std::vector<Match> found;
    while (found.size() < atMost && matcher->find(status) != 0) {
        Match match;
        match.start = toUTF8(subject.tempSubStringBetween(0, matcher->start(status))).size();
        match.end = toUTF8(subject.tempSubStringBetween(0, matcher->end(status))).size();
        for (std::int32_t group = 0; group <= matcher->groupCount(); ++group) {
            const bool tookPart = matcher->start(group, status) >= 0;
            match.groups.push_back(tookPart ? std::optional(toUTF8(matcher->group(group, status)))
                                            : std::nullopt);
        }
        found.push_back(std::move(match));
    }
    check(status);
    return found;
}

std::vector<RegularExpression::Match> RegularExpression::matches(std::string_view text) const {
    return find(text, std::numeric_limits<std::size_t>::max());
}

std::optional<RegularExpression::Match> RegularExpression::firstMatch(std::string_view text) const {
    const std::vector<Match> found = find(text, 1);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

std::string RegularExpression::replaced(std::string_view text, const Replacement& replacement) const {
    std::string result;
    std::size_t copied = 0;
    for (const Match& match : matches(text)) {
        result += text.substr(copied, match.start - copied);
        result += replacement(match);
        copied = match.end;
    }
    result += text.substr(copied);
    return result;
}

} // namespace quillmar
