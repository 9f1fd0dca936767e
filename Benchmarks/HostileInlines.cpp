#include "Benchmarks/HostileMarkdown.h"
#include "Benchmarks/HostileTexts.h"

#include <algorithm>
#include <cmath>

namespace quillmar {

using namespace HostileTexts;

namespace {

/// A link's text with runs of every length, whose partners all stand far behind it.
std::string runsWithFarPartners(std::size_t bytes) {
    const auto longest = static_cast<std::size_t>(std::sqrt(static_cast<double>(bytes) / 3));
    std::string text = "x [";
    for (std::size_t run = 2; run < longest; ++run)
        text.append("<aa:").append(run, '`').append(">").append(run, '`').append("a");
    text.append("](b)").append(times(longest * longest / 6, "`a"));
    for (std::size_t run = 2; run < longest; ++run) text.append(run, '`').append("a");
    text.resize(std::min(text.size(), bytes));
    return text;
}

} // namespace

HostileDocuments hostileInlines() {
    return {
        // Code spans and angle brackets.
        {"brackets that addresses hide from each other", repeated("[<aa:`>]", "x [<aa:`>")},
        {"runs of backticks with far partners", runsWithFarPartners},
        {"backticks of one run", repeated("`")},
        {"backticks one by one", repeated("`a")},
        {"backticks by one and two", repeated("` `` ")},
        {"backticks growing", numbered([](std::size_t i) { return std::string(i + 1, '`') + "a"; })},
        {"backticks shrinking",
         [](std::size_t bytes) {
             std::string text;
             for (auto run = static_cast<std::size_t>(std::sqrt(2 * static_cast<double>(bytes))) - 2; run > 0;
                  --run)
                 text.append(run, '`').append("a");
             return text;
         }},
        {"backticks with backslashes", repeated("\\`` ")},
        {"code span of many lines", [](std::size_t bytes) { return "`" + times(bytes / 2 - 1, "a\n") + "`"; }},
        {"code span of spaces", [](std::size_t bytes) { return "`" + spaces(bytes - 2) + "`"; }},
        {"<", repeated("<")},
        {"< in a paragraph", repeated("a<")},
        {"<a", repeated("a <a")},
        {"<a ", repeated("<a ", "a ")},
        {"<a b=", repeated("<a b=", "a ")},
        {"<a b=\"", repeated("<a b=\"", "a ")},
        {"<a b='", repeated("<a b='", "a ")},
        {"<a b and more attributes", repeated("b ", "a <a ")},
        {"<a b=\"\" and more attributes", repeated("b=\"\" ", "a <a ")},
        {"<a and white space", [](std::size_t bytes) { return "a <a" + spaces(bytes - 5) + "<"; }},
        {"<a and many >", halves("a <a b=\"", ">")},
        {"</", repeated("a </")},
        {"</a", repeated("a </a")},
        {"<aa:", repeated("<aa:")},
        {"<a@", repeated("<a@")},
        {"<a.b@c", repeated("<a.b@c")},
        {"<aa:b> many times", repeated("<aa:b>")},
        {"<a@b.c> many times", repeated("<a@b.c>")},
        {"<!--", repeated("<!--")},
        {"<!-- in a paragraph", repeated("a <!--")},
        {"<!-- in lines", repeated("<!--\n")},
        {"<!-- and hyphens", repeated("-", "a <!")},
        {"<!-- --> many times", repeated("a <!-- -->")},
        {"<!-- -> in a paragraph", repeated("a <!-- ->")},
        {"<?", repeated("a <?")},
        {"tags", repeated("<b>", "a ")},
        {"tags of many lines", [](std::size_t bytes) { return "a <b" + times(bytes / 3 - 3, "\nc") + ">"; }},
        {"images as tags", repeated("<img>", "a ")},
        {"images as tags with sources", repeated("<img src='b'>", "a ")},

        // Emphasis.
        {"*", repeated("*")},
        {"_", repeated("_")},
        {"a_b", repeated("a_b")},
        {"*a ", repeated("*a ")},
        {"a* ", repeated("a* ")},
        {"*a* ", repeated("*a* ")},
        {"*a*", repeated("*a*")},
        {"_a", repeated("_a ")},
        {"a_", repeated("a_ ")},
        {"_a_ ", repeated("_a_ ")},
        {"*a_ ", repeated("*a_ ")},
        {"*a _b* ", repeated("*a _b* ")},
        {"*_a", repeated("*_a ")},
        {"**a*", repeated("**a* ")},
        {"*a**", repeated("*a** ")},
        {"***a", repeated("***a ")},
        {"a**b", repeated("a**b")},
        {"a**b and closers", halves("a**b", "c* ")},
        {"openers, then closers of another mark", halves("*a ", "b_ ")},
        {"openers, then closers", halves("*a ", "b* ")},
        {"openers of three, then closers of one", halves("***a ", "b* ")},
        {"one long opener, many closers", halves("*", "a* ")},
        {"many openers, one long closer",
         [](std::size_t bytes) { return times(bytes / 6, "*a ") + "b" + std::string(bytes / 2 - 1, '*'); }},
        {"one long opener, one long closer", matched("*", "a", "*")},
        {"one long opener, one long closer of _", matched("_", "a", "_")},
        {"runs growing", numbered([](std::size_t i) { return std::string(i + 1, '*') + "a "; })},
        {"runs growing, both sides", numbered([](std::size_t i) { return "a" + std::string(i + 1, '*'); })},
        {"~", repeated("~")},
        {"~a", repeated("~a ")},
        {"~~a", repeated("~~a ")},
        {"a~~ ", repeated("a~~ ")},
        {"~~a~~", repeated("~~a~~")},
        {"~~a**b", repeated("~~a**b")},
        {"~~, then many *", halves("~~a ", "*a ")},
        {"* and ~~ crossing", repeated("*a ~~b* c~~ ")},
        {"all marks", repeated("*_~~a")},
        {"emphasis in links", repeated("[*a](b)* ")},

        // Text.
        {"one line of letters", repeated("a")},
        {"lines of one letter", repeated("a\n")},
        {"letters and empty lines", repeated("a\n\n")},
        {"empty lines", repeated("\n")},
        {"carriage returns", repeated("\r")},
        {"carriage returns and line feeds", repeated("\r\n")},
        {"lines ended by carriage returns", repeated("a\r")},
        {"spaces", repeated(" ")},
        {"lines of spaces", repeated("                \n")},
        {"spaces growing", growing(" ", "\n")},
        {"tabs", repeated("\t")},
        {"tabs at line starts", repeated("\t\t\ta\n")},
        {"tabs behind spaces", repeated("   \ta\n")},
        {"tabs behind bullets", repeated("-\t")},
        {"tabs growing", growing("\t", "a\n")},
        {"hard breaks", repeated("a  \n")},
        {"hard breaks by backslash", repeated("a\\\n")},
        {"spaces before a line break", repeated(std::string(64, ' ') + "\na")},
        {"spaces and a letter", [](std::size_t bytes) { return "a" + spaces(bytes - 2) + "b"; }},
        {"backslashes", repeated("\\")},
        {"backslash and letter", repeated("\\a")},
        {"escapes", repeated("\\*")},
        {"escaped references", repeated("\\<\\&")},
        {"&", repeated("&")},
        {"\"", repeated("\"")},
        {"&amp;", repeated("&amp;")},
        {"NUL", repeated(std::string(1, '\0'))},
        {"http://", repeated("http://")},
        {"http:// and spaces", repeated("http:// ")},
        {"http://a ", repeated("http://a ")},
        {"http://a and full stops", repeated(".", "http://a")},
        {"http://a. in turn", repeated("http://a. ")},
        {"http://a*", repeated("http://a*")},
        {"http://&", repeated("&", "http://")},
        {"https://", repeated("https://")},
        {"www.", repeated("www.")},
        {"www. and spaces", repeated("www. ")},
        {"www.a ", repeated("www.a ")},
        {"www. and marks", repeated("(www.!?")},
        {"h", repeated("h ")},
        {"w", repeated("w")},
        {"http:/", repeated(" http:/")},
        {"!", repeated("!")},
        {"no-break spaces", repeated("\xC2\xA0")},
        {"no-break spaces in lines", repeated("\xC2\xA0\n")},
        {"wide spaces and letters", repeated("\xE3\x80\x80"
                                             "a\n")},
        {"combining marks", repeated("\xCC\x81", "a")},
        {"headings of combining marks", repeated("# a\xCC\x81\n")},
        {"references of combining marks",
         [](std::size_t bytes) { return times(bytes / 1'003, "[a" + times(500, "\xCC\x81") + "]"); }},
        {"definitions of combining marks",
         numbered([](std::size_t i) { return "[a\xCC\x81" + label(i) + "]: b\n"; })},
        {"emphasis and combining marks", repeated("*a\xCC\x81")},
        {"emphasis and symbols", repeated("*\xE2\x82\xAC*a")},
        {"letters beyond ASCII", repeated("\xC3\xA9\xD0\xB6")},
        {"ideographs", repeated("\xE6\xBC\xA2")},
        {"emoji", repeated("\xF0\x9F\x8C\xB1")},
        {"bytes that are no UTF-8", repeated("\xFF")},
        {"characters cut short", repeated("\xF0\x9F*")},
    };
}

} // namespace quillmar
