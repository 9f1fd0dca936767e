#include "Benchmarks/HostileMarkdown.h"
#include "Benchmarks/HostileTexts.h"

namespace quillmar {

using namespace HostileTexts;

HostileDocuments hostileLinks() {
    return {
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
        {"undefined references growing",
         numbered([](std::size_t i) { return "[" + std::string(i, 'a') + "] "; })},
        {"undefined reference of white space",
         [](std::size_t bytes) { return "[" + spaces(bytes - 3) + "a]"; }},
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
}

} // namespace quillmar
