#include "Benchmarks/HostileMarkdown.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace quillmar {
namespace {

using Document = std::function<std::string(std::size_t bytes)>;

std::string times(std::size_t count, std::string_view unit) {
    std::string text;
    text.reserve(count * unit.size());
    for (; count > 0; --count) text.append(unit);
    return text;
}

/// \p start, then \p unit again and again.
Document repeated(std::string unit, std::string start = "") {
    return [=](std::size_t bytes) { return start + times((bytes - start.size()) / unit.size(), unit); };
}

/// As many times \p opening as \p closing, \p middle between them.
Document matched(std::string opening, std::string middle, std::string closing) {
    return [=](std::size_t bytes) {
        const std::size_t count = (bytes - middle.size()) / (opening.size() + closing.size());
        return times(count, opening) + middle + times(count, closing);
    };
}

/// \p first fills half of the bytes, \p second the rest.
Document halves(std::string first, std::string second) {
    return [=](std::size_t bytes) {
        return times(bytes / 2 / first.size(), first) + times(bytes / 2 / second.size(), second);
    };
}

/// part(0), part(1) and so on.
Document numbered(std::function<std::string(std::size_t index)> part) {
    return [=](std::size_t bytes) {
        std::string text;
        for (std::size_t i = 0;; ++i) {
            const std::string next = part(i);
            if (text.size() + next.size() > bytes) return text;
            text.append(next);
        }
    };
}

/// \p start, then lines that begin with ever more times \p unit and end with \p end: the text is the square of
/// the deepest line.
Document growing(std::string unit, std::string end, std::string start = "") {
    return [=](std::size_t bytes) {
        std::string text = start;
        for (std::size_t depth = 1; text.size() + depth * unit.size() + end.size() <= bytes; ++depth)
            text.append(times(depth, unit)).append(end);
        return text;
    };
}

/// A line of \p opening again and again, then lines made for its depth. It is so deep that there are about as
/// many lines as levels.
Document square(std::string opening, std::function<std::string(std::size_t depth)> line) {
    return [=](std::size_t bytes) {
        const auto depth = static_cast<std::size_t>(
            std::sqrt(static_cast<double>(bytes) / static_cast<double>(opening.size())));
        std::string text = times(depth, opening) + "a\n";
        const std::string next = line(depth);
        return text + times((bytes - text.size()) / next.size(), next);
    };
}

std::string spaces(std::size_t count) { return std::string(count, ' '); }

/// Short, another one for each \p number.
std::string label(std::size_t number) {
    constexpr std::string_view digits = "0123456789abcdefghijklmnopqrstuvwxyz.,;:?=+-%$#@/()";
    std::string text;
    for (; text.empty() || number > 0; number /= digits.size()) text += digits[number % digits.size()];
    return text;
}

using Classes = std::vector<HostileMarkdown>;

const Classes quotesAndLists{
    {"quotes nested", repeated(">")},
    {"quotes nested, spaced", repeated("> ")},
    {"quotes one by one", repeated("> a\n\n")},
    {"quote of many lines", repeated("> a\n")},
    {"quote lines growing deeper", growing(">", "a\n")},
    {"quotes nested, then lazy lines", halves(">", "\na")},
    {"quotes nested, then empty lines", halves(">", "\n")},
    {"quote lines and lazy lines", repeated("> a\na\n")},
    {"deep quotes, every line as deep",
     square("> ", [](std::size_t depth) { return times(depth, "> ").append("a\n"); })},
    {"deep quotes, lines half as deep",
     square("> ", [](std::size_t depth) { return times(depth / 2, "> ").append("a\n"); })},
    {"bullets nested", repeated("- ")},
    {"bullets nested, mixed", repeated("- * + ")},
    {"numbers nested", repeated("1. ")},
    {"quotes and bullets nested", repeated("> - ")},
    {"bullets and quotes nested", repeated("- > ")},
    {"all containers nested", repeated("- > 1. * > 2) + ")},
    {"bullets nested, then empty lines and text",
     [](std::size_t bytes) { return halves("- ", "\n")(bytes - 2).append("a\n"); }},
    {"bullets nested, then lazy lines", halves("- ", "\na")},
    {"bullets nested, then indented lines", halves("- ", "\n  a")},
    {"bullets nested, then items", halves("- ", "\n- a")},
    {"bullets nested, then far indented items", halves("- ", "\n     - a")},
    {"bullets growing deeper", growing("  ", "- a\n")},
    {"bullets growing deeper, loose", growing("  ", "- a\n\n")},
    {"numbers growing deeper", growing("   ", "1. a\n")},
    {"bullets nested line by line, growing", growing("- ", "a\n")},
    {"deep bullets, lines at their depth",
     square("- ", [](std::size_t depth) { return spaces(2 * depth).append("a\n"); })},
    {"deep bullets, lines and empty lines",
     square("- ", [](std::size_t depth) { return spaces(2 * depth).append("a\n\n"); })},
    {"deep bullets, items at their depth",
     square("- ", [](std::size_t depth) { return spaces(2 * depth).append("- a\n"); })},
    {"deep bullets, lines at half their depth",
     square("- ", [](std::size_t depth) { return spaces(depth).append("a\n"); })},
    {"deep bullets, lazy lines", square("- ", [](std::size_t) { return std::string("a\n"); })},
    {"deep bullets, empty lines", square("- ", [](std::size_t) { return std::string("\n"); })},
    {"items", repeated("- a\n")},
    {"items, loose", repeated("- a\n\n")},
    {"items without text", repeated("-\n")},
    {"items that each end the list", repeated("- a\n+ a\n* a\n")},
    {"items indented by one to three", repeated("- a\n - a\n  - a\n   - a\n")},
    {"numbers", repeated("1. a\n1) a\n")},
    {"numbers that do not interrupt", repeated("2. a\n", "a\n")},
    {"numbers of ten digits", repeated("1234567890. a\n")},
    {"tasks", repeated("- [x] a\n- [ ]\n")},
    {"tasks nested", repeated("- [x] ")},
    {"item, then empty lines", repeated("\n", "- a\n")},
    {"items far apart", repeated("- a\n\n\n\n\n\n\n\n")},
    {"items and quotes in turn", repeated("- a\n> b\n")},
    {"item lines with lazy quotes", repeated("- > a\n  b\nc\n")},
    {"breaks that end in text", repeated("- - - - - - - - x\n")},
    {"break that ends in text", [](std::size_t bytes) { return times(bytes / 2 - 1, "* ").append("x"); }},
    {"break of one line", repeated("* ")},
    {"breaks", repeated("***\n- - -\n")},
    {"bullets and breaks", repeated("- ***\n")},
};

const Classes leafBlocks{
    {"indented code", repeated("    a\n")},
    {"indented code and empty lines", repeated("    a\n\n")},
    {"indented code, then empty lines", repeated("\n", "    a\n")},
    {"code in bullets in code", repeated("-     a\n\n")},
    {"fences", repeated("```\n")},
    {"fences of both kinds", repeated("```\n~~~\n")},
    {"fences growing", growing("`", "\n", "```\n")},
    {"fence never closed, nearly closed lines", repeated("`` ``\n", "```\n")},
    {"fences never closed in bullets", repeated("- ```\n")},
    {"fences never closed in nested bullets", growing("- ", "```\n")},
    {"fences never closed in quotes", repeated("> ```\n\n")},
    {"fences with a backtick behind", repeated("```a`\n")},
    {"fence with a long language", repeated("a", "```")},
    {"fence with many words", repeated("a ", "```")},
    {"headings of the same text", repeated("# a\n")},
    {"headings without text", repeated("#\n")},
    {"headings that grow", numbered([](std::size_t i) { return "# " + std::string(i, 'a') + "\n"; })},
    {"headings with growing numbers",
     numbered([](std::size_t i) { return "# a " + std::to_string(i) + "\n"; })},
    {"headings that look numbered", repeated("# a\n# a-1\n")},
    {"heading that almost closes", repeated(" #", "# a")},
    {"heading of hashes and spaces", repeated("# ")},
    {"heading with spaces before its end", [](std::size_t bytes) { return "# a" + spaces(bytes - 5) + "#b"; }},
    {"heading of one line", repeated("a ", "# ")},
    {"heading of capitals", repeated("\xC4\xB0", "# ")},
    {"underlines", repeated("=\n")},
    {"underlined lines", repeated("a\n=\n")},
    {"underlined by hyphens", repeated("a\n-\n")},
    {"lines, underlined at the end", [](std::size_t bytes) { return times(bytes / 2 - 1, "a\n").append("="); }},
    {"underlines that end in text", repeated("===================x\n")},
    {"front matter", [](std::size_t bytes) { return "---\n" + times(bytes / 5 - 2, "a: b\n") + "---\n"; }},
    {"front matter that is no list",
     [](std::size_t bytes) { return "---\n" + times(bytes / 5 - 2, " - b\n") + "---\n"; }},
    {"front matter never closed", repeated("a: b\n", "---\n")},
    {"front matter again and again", repeated("---\n")},
    {"table of pipes", repeated("|")},
    {"lines of pipes", repeated("|\n")},
    {"lines with pipes, no delimiter", repeated("a|b\n")},
    {"lines with pipes, wrong delimiters", repeated("a|b\n-|-|-\n")},
    {"delimiter lines", repeated("-|-\n")},
    {"long delimiter lines that do not match", growing("-|", "-\n")},
    {"delimiter of one line", repeated("|-", "a|b\n")},
    {"delimiter that ends in text",
     [](std::size_t bytes) { return "a|b\n" + times(bytes / 3 - 4, ":-|").append("x"); }},
    {"table", repeated("a|b\n", "a|b\n-|-\n")},
    {"tables", repeated("a|b\n-|-\n\n")},
    {"wide table, short rows",
     [](std::size_t bytes) {
         const std::size_t columns = bytes / 16;
         const std::string header = times(columns, "a|") + "a\n" + times(columns, "-|") + "-\n";
         return header + times((bytes - header.size()) / 3, "a|\n");
     }},
    {"wide tables, short rows",
     [](std::size_t bytes) {
         return times(bytes / 2'003, times(499, "a|") + "a\n" + times(499, "-|") + "-\n|\n\n");
     }},
    {"narrow table, long rows", growing("a|", "a\n", "a|b\n-|-\n")},
    {"row of backticks and pipes", repeated("`|", "a|b\n-|-\n")},
    {"row of escaped pipes", repeated("\\|", "a|b\n-|-\n")},
    {"header of escaped pipes", halves("\\|", "\n-")},
};

const Classes linksAndReferences{
    {"[", repeated("[")},
    {"[ in lines", repeated("[\n")},
    {"![", repeated("![")},
    {"]", repeated("]")},
    {"[]", repeated("[]")},
    {"](", repeated("](")},
    {"[a", repeated("[a")},
    {"[](", repeated("[](")},
    {"[a](", repeated("[a](")},
    {"[a]( and white space", repeated(" \n", "[a](b")},
    {"[a]( each with white space", repeated("[a](    ")},
    {"[a](<", repeated("[a](<")},
    {"[a](<b", repeated("[a](<b")},
    {"[a](b", repeated("[a](b")},
    {"[a](b \"", repeated("[a](b \"")},
    {"[a](b '", repeated("[a](b '")},
    {"[a](b (", repeated("[a](b (")},
    {"[a](b \"c\"", repeated("[a](b \"c\"")},
    {"[a]((", repeated("(", "[a](")},
    {"[a]((((", repeated("[a]((((")},
    {"[a](\\)", repeated("[a](\\)")},
    {"[a][", repeated("[a][")},
    {"[a][b", repeated("[a][b")},
    {"[a] and [b] in pairs", repeated("[a][b]")},
    {"[`", repeated("[`")},
    {"[ and backticks growing", numbered([](std::size_t i) { return "[" + std::string(i, '`'); })},
    {"[\\", repeated("[\\")},
    {"[<", repeated("[<")},
    {"brackets matched", matched("[", "a", "]")},
    {"brackets matched, spaced", matched("[ ", "a", "] ")},
    {"brackets matched after !", matched("![", "a", "]")},
    {"brackets matched in quotes", matched("[", "\n> a", "]")},
    {"links nested", matched("[", "a", "](b)")},
    {"links nested, closed half", matched("[[", "a", "](b)")},
    {"images nested", matched("![", "a", "](b)")},
    {"images and links nested", matched("[![", "a", "](b)](c)")},
    {"links nested with words", matched("[a ", "a", " b](b)")},
    {"links nested with emphasis", matched("*[", "a", "](b)*")},
    {"references nested", matched("[", "a", "][b]")},
    {"references nested and defined",
     [](std::size_t bytes) { return "[b]: c\n\n" + matched("[", "a", "][b]")(bytes - 8); }},
    {"links", repeated("[a](b)")},
    {"links with titles", repeated("[a](b \"c\") ")},
    {"links to spaces", repeated("[a](<  >)")},
    {"links to unknown schemes", repeated("[a](b:c)")},
    {"link with long text", [](std::size_t bytes) { return "[" + std::string(bytes - 5, 'a') + "](b)"; }},
    {"link to a long destination",
     [](std::size_t bytes) { return "[a](" + std::string(bytes - 5, 'b') + ")"; }},
    {"images", repeated("![a](b)")},
    {"images of data", repeated("![a](data:image/)")},
    {"images with wrong percent signs", repeated("![](%2)")},
    {"undefined references", repeated("[a] ")},
    {"undefined full references", repeated("[a][b] ")},
    {"undefined collapsed references", repeated("[a][] ")},
    {"undefined references, all different", numbered([](std::size_t i) { return "[" + label(i) + "] "; })},
    {"undefined references growing", numbered([](std::size_t i) { return "[" + std::string(i, 'a') + "] "; })},
    {"undefined reference of white space", [](std::size_t bytes) { return "[" + spaces(bytes - 3) + "a]"; }},
    {"undefined references, many characters",
     [](std::size_t bytes) { return times(bytes / 1'002, "[" + times(500, "\xC3\x84") + "]"); }},
    {"definition used again and again", repeated("[a]", "[a]: b\n\n")},
    {"long definition used again and again", repeated("[a]", "[a]: " + std::string(1'000, 'b') + "\n\n")},
    {"definition of half the text, used",
     [](std::size_t bytes) {
         return "[a]: " + std::string(bytes / 2, 'b') + "\n\n" + times(bytes / 8, "[a]");
     }},
    {"definition used in image after image", repeated("![a]", "[a]: data:image/b\n\n")},
    {"tiny definitions", numbered([](std::size_t i) { return "[" + label(i) + "]:b\n"; })},
    {"tiny definitions, then all used",
     [](std::size_t bytes) {
         std::string text;
         std::string uses;
         for (std::size_t i = 0; text.size() + uses.size() + 20 < bytes; ++i) {
             text += "[" + label(i) + "]:b\n";
             uses += "[" + label(i) + "]";
         }
         return text + "\n" + uses;
     }},
    {"definitions of one label", repeated("[a]: b\n")},
    {"definitions with titles", repeated("[a]: b \"c\"\n")},
    {"definitions with two titles", repeated("[a]: b \"c\" \"d\"\n")},
    {"definition with many quotes", repeated("\" ", "[a]: b \"")},
    {"definition with many quotes, then text",
     [](std::size_t bytes) { return "[a]: b \"" + times(bytes / 2 - 5, "\" ").append("c"); }},
    {"definition with a long label",
     [](std::size_t bytes) { return "[" + std::string(bytes - 4, 'a') + "]:b"; }},
    {"definition with white space, then text",
     [](std::size_t bytes) { return "[a]: b" + spaces(bytes - 7) + "c"; }},
    {"definition of white space", [](std::size_t bytes) { return "[a]:" + spaces(bytes - 4); }},
    {"definitions of nothing", repeated("[a]:\n")},
    {"definitions without a colon", repeated("[a] b\n")},
    {"footnotes", repeated("[^a]: b\n")},
};

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

const Classes codeSpansAndAngles{
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
};

const Classes htmlBlocks{
    {"block: <div", repeated("<div\n")},
    {"block: many", repeated("<p>\n\n")},
    {"block: <b>", repeated("<b>")},
    {"block: <img ", repeated("<img ")},
    {"block: <img> many times", repeated("<img>")},
    {"block: <img src=", repeated("<img src=")},
    {"block: <img src='", repeated("<img src='")},
    {"block: <img src='a", repeated("src=\"a' ", "<img ")},
    {"block: image with many sources",
     [](std::size_t bytes) { return "<img" + times(bytes / 7 - 1, " src='b") + ">"; }},
    {"block: image with many names",
     [](std::size_t bytes) { return "<img" + times(bytes / 4 - 2, " src") + ">"; }},
    {"block: image, white space before the source",
     [](std::size_t bytes) { return "<img src" + spaces(bytes - 9) + ">"; }},
    {"block: image with many alternatives",
     [](std::size_t bytes) { return "<img src='' " + times(bytes / 7 - 3, "alt=\"' ") + ">"; }},
    {"block: images with sources", repeated("<img src='b'>")},
    {"block: images with alternatives", repeated("<img src='b' alt='c'>")},
    {"block: <input ", repeated("<input ", "<p>")},
    {"block: <input", repeated("<input", "<p>")},
    {"block: <input> many times", repeated("<input>")},
    {"block: <script", repeated("<script", "<p>")},
    {"block: <script ", repeated("<script ", "<p>")},
    {"block: <script> many times", repeated("<script>", "<p>")},
    {"block: <script></script> many times", repeated("<script></script>")},
    {"block: </script", repeated("</script", "<p><script>")},
    {"block: </script and white space", repeated("</script    ", "<p><script>")},
    {"block: each element opened", repeated("<script><style><iframe><form><object>", "<p>")},
    {"block: elements in turn, closed last",
     [](std::size_t bytes) { return times(bytes / 22 - 1, "</form><script></form>") + "</script>"; }},
    {"block: half open, half closed", halves("<form>", "</style>")},
    {"block: <style and >", halves("<style", ">")},
    {"block: href=", repeated("href=", "<p>")},
    {"block: href= and spaces", repeated("href=    ", "<p>")},
    {"block: href and white space", [](std::size_t bytes) { return "<p href" + spaces(bytes - 8) + "x"; }},
    {"block: href=' and white space", [](std::size_t bytes) { return "<p href='" + spaces(bytes - 10) + "x"; }},
    {"block: href='javascript", repeated("href='javascript ", "<p>")},
    {"block: href=javascript:", repeated("href=javascript:", "<p>")},
    {"block: src=data:text", repeated("src=data:text", "<p>")},
    {"block: xlink:href", repeated("xlink:", "<p>")},
    {"block: white space", repeated(" ", "<p")},
    {"block: white space, no event behind", [](std::size_t bytes) { return "<p" + spaces(bytes - 5) + "on="; }},
    {"block: white space before events", repeated("        on", "<p")},
    {"block: on", repeated("on", "<p ")},
    {"block: on and letters", repeated("n", "<p o")},
    {"block: one word on after the other", repeated(" on", "<p")},
    {"block: ona and white space", repeated(" ona    ", "<p")},
    {"block: ona = and white space", repeated(" ona =   ", "<p")},
    {"block: ona=\"", repeated(" ona=\"", "<p")},
    {"block: ona='", repeated(" ona='b\"", "<p")},
    {"block: ona=b", repeated(" ona=b", "<p")},
    {"block: long s and Kelvin sign", repeated("<\xC5\xBF\xE2\x84\xAA", "<p>")},
    {"block: script with a long s", repeated("<\xC5\xBF"
                                             "cript>",
                                             "<p>")},
};

const Classes emphasis{
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
};

const Classes text{
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

} // namespace

std::vector<HostileMarkdown> hostileMarkdown() {
    Classes all;
    for (const Classes* some : {&quotesAndLists, &leafBlocks, &linksAndReferences, &codeSpansAndAngles,
                                &htmlBlocks, &emphasis, &text})
        all.insert(all.end(), some->begin(), some->end());
    return all;
}

} // namespace quillmar
