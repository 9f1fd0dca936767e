#include "Tests/Helpers/RandomMarkdown.h"

#include <array>

namespace quillmar::RandomMarkdown {
namespace {

using Piece = std::string_view;

// clang-format off

constexpr std::array<Piece, 0> noPrefixes{};

constexpr auto containerPrefixes = std::to_array<Piece>({
    "> ", "> ", ">", " > ", "    > ", ">\u00A0", "> \t", "\u00A0", "- ", "- ", "* ", "+ ", "-", "-\t",
    "-   ", "-     ", "1. ", "1. ", "3) ", "0. ", "1.", "10. ", "123456789. ", "1234567890. ", "  ", " ",
    "   ", "    ", "     ", "\t", " \t"});

constexpr auto listPrefixes = std::to_array<Piece>({
    "- ", "- ", "- ", "* ", "* ", "-  ", "-", "1. ", "2. ", "2. ", "2) ", "07. ", "  ", "  ", " ", "   ",
    "    ", "> ", "- [ ] ", "- [x] ", "1. [X]", "- \n", "-     ", " - ", "  - ", "   - "});

constexpr auto blockPieces = std::to_array<Piece>({
    "> ", "- ", "1. ", "3) ", "    ", "\t", "```", "```", "~~~~", "---", "***", "___", "* * *", "===", "=",
    "-", "+", "2.", "| a | b |", "|-|:-:|", "a|b\n-|-\n", "<div>", "</p>", "<!--", "-->", "[a]: b", "# x #",
    "#", "# ", "####### ", "- [ ] x", "*", "_", "~~", "`", "``", "[", "](u)", "![", "<http://a>",
    "<b c='d'>", "www.", "http://", "\\", "a\\|b", "a", "a", "x:", " ", "  ", "\n", "\n\n", "é", "\u00A0",
    "\u2003", "\u2028", "\v", "\f", "\u0085", "\r"});

constexpr auto blockCharacters = std::to_array<Piece>({
    " ", " ", " ", "\t", "\n", "\n", "\n", ">", "-", "-", "*", "+", "1", ".", ")", "#", "`", "~", "=", "|",
    ":", "<", "a", "a", "_", "[", "]", "!", "/", "x", "\\", "\u00A0", "\u2028", "\r"});

constexpr auto listPieces = std::to_array<Piece>({
    "a", "b", "c\n", "d\n\n", "\n", "\n\n", "e\n\nf", "g\nh", "- ", "- i", "* ", "1. ", "2) j", "[ ] ",
    "[x] ", "[ ]", "[x]k", "# l", "***", "---", "===", "```\n", "> m", "    ", "  ", " ", "<p>", "|-|", "+",
    "é", "\u00A0"});

constexpr auto fencePieces = std::to_array<Piece>({
    "```", "```", "````", "``", "`", "~~~", "~~~", "~~~~~", "~~", "~", "```\na\n```", "~~~ b\n\n~~~~\n",
    "\n", "\n\n", " ", "  ", "    ", "\t", "js", "a&b", "c d", "\"", "<", "[a]: b", "\u00A0", "\u2003",
    "\u2028"});

constexpr auto headingPieces = std::to_array<Piece>({
    "# ", "# ", "## ", "###### ", "#", "##", " #", " ##  ", "\t#", "#\t", "\\#", "\u00A0#", "# a #",
    "### B ##\n", "a\n===\n", "a\n---", "c\nd\n--", "\n", "===", "---", "=", "-", "=\u00A0", " ", "  ",
    "    ", "\t", "a", "a", "A b", "a-1", "1", "_", "*", "`", "!", "<i>", "é", "e\u0301", "É", "ß", "İ",
    "Σ", "\u0301", "½", "\u4E2D", "\u2028", "# é\n", "# e\u0301\n"});

constexpr auto tablePieces = std::to_array<Piece>({
    "|a|b|\n|-|-|\n", "a|b\n:-|-:\n", "c|d|e\n-|:-:|-\n", "|f|\n|:---:|\n", "|g\n|-\n", "h|\n-|\n", "\n",
    "|", "|", " | ", "x|y", "|z|", "a", "b", "`", "``", "\\|", "\\", "-|-|-", "|-|", ":", "-", "-\u2028",
    "*c*", "[d](e|f)", "`g|h`", " ", "    ", "# h", "> ", "- ", "1. ", "2. ", "<p>", "é", "\u00A0", "\u2028"});

constexpr auto rawPieces = std::to_array<Piece>({
    "<div>", "<div", "</div>", "<DIV/>", "<div ", "<div\u2028", "<h1>", "<b", "<a-b>", "<1>", "<é>",
    "<p>\n", "\n\n", "<!--", "<!-- x\n\ny -->", "-->", "<!-->", "<!--->", "--", ">", "<", "/", "a", "*b*",
    "# f", "> ", "- ", " ", "    ", "<script>", "</script>", "<iframe ", "<img src='a' alt=\"b\">",
    "<img src=m>", "<img alt='c' src='m'>", "<a onclick=d href='javascript:e'>", "'", "\"", "=", "\u00A0",
    "\u2028"});

constexpr auto referencePieces = std::to_array<Piece>({
    "[a]: b\n", "[A]: c \"t\"\n", "[a  b]: <d>\n", "[A]: <> 't' \n", "[é]: u\n", "[e\u0301]: v\n",
    "[k]: w (x) )\n", "[ ]: z\n", "[^n]: o\n", "[\u017F]: k\n", "[\u212A]: l\n", "[m]: m.png\n", "[a]:\n",
    "[a]", "[a][]", "[x][a]", "[x][A b]", "[a\nb]", "[A\tB]", "![a]", "![k][m]", "[É]", "[k]", "[s]", "[ ]",
    "[]", "[^n]", "[", "]", "]: ", "\"t", "(t\"", "\"", "'t'", "<", ">", ":", "a:b/c", "a/b:c",
    "javascript:x", "mailto:y", " ", "    ", "\t", "\\", "é", "e\u0301", "\u00A0", "\u2028", "```\n", "~~~",
    "\n"});

constexpr auto headerPieces = std::to_array<Piece>({
    "---\n", "...\n", "--- ", " ---", "----", "a: b", "c:d:e", ":", "f:", " g: h", "- i", "<&>: '\"'", "j",
    " ", "\t", "# m", "[n]: o", "\r", "\u00A0", "\u00A0k: l", "\u2028"});

constexpr auto emphasisPieces = std::to_array<Piece>({
    "*", "*", "*", "**", "**", "***", "_", "_", "__", "___", "~~", "~~", "~", "~~~", "a", "a", "b", "b",
    " ", " ", "**a", "a**", "*a*", "__b__", "~~c~~", ".", "(", ")", "\"", "\\", "`", "<b>", "[c](d)",
    "  \n", "\\\n", "\n", "1", "é", "€", "\u00AB", "\u00A0", "\u2028", "\u0301", "\u200B"});

constexpr auto linkPieces = std::to_array<Piece>({
    "[a](u)", "[b](<u v> \"t\")", "[c]( x 't' )", "![d](y (t))", "![](m)", "![*e*](./z%20w)", "[a]",
    "[f][a]", "[B b][]", "![m]", "[g `](` h](i)", "[j [k](l) n](o)", "[", "[", "]", "]", "(", ")", "](",
    "](u)", "![", "!", "][", "](<u v>", "](<", "<", ">", "`", "``", "\\", "\\", "\"", "'", " \"t\")",
    " 't')", " (t)", "()", " ", " ", "\n", "\t", "*c*", "**", "_", "mailto:d", "javascript:e", "x:y", "/z:",
    "%zz", "%C3", "data:image/i", "http://f", "![p](HTTP://q)", "![r](data:image/s)", "<g>", "&", "é",
    "\u00A0", "\u2028", "?y:z", "[v](<w\nx>)", "[y](z\\)a)", "\\)", "](<a\n", "![c](./e:f)", "![h](i%FF)"});

constexpr auto anglePieces = std::to_array<Piece>({
    "<http://a>", "<HTTPS://b c>", "<mailto:d>", "<javascript:h>", "<e@f.g>", "</e@f.g>", "<i+.-1:n>",
    "<é1:", "é:x", "<b>", "</b>", "<a c='d' e=\"f\" g=h>", "<a\nb>", "<img src='j'>",
    "<img src='m' alt='k'>", "<script>", "</script>", "<input>", "<!-- o -->", "<", ">", "</", "/>", "<a",
    " c='d'", " c=\"d\"", " c=d", " c", "=", "'", "\"", "<!--", "-->", "--", "->", "!", "-", ":", "@", ".",
    "http://", "https://p", "HTTP://", "www.", "WWW.q", "w", "h", "/", "a", "1", ",", "?", "*", "_", "~~",
    "&", " ", " ", "\n", "  \n", "\t", " onclick=l", "\\", "`", "[o](", ")", "é", "²", "\u0661", "\u00A0",
    "\u2028", "\u017F", "\u212A", "\u0130", " c = d", " eé=\"f\"", "<a eé=\"f\">"});

constexpr auto inlineCharacters = std::to_array<Piece>({
    "*", "*", "_", "~", "`", "[", "[", "]", "]", "(", ")", "!", "<", ">", "\\", "\n", " ", " ", "a", "a",
    "b", "h", "w", ".", ":", "/", "@", "\"", "'", "&", "-", "=", "1", "é", "\u00A0", "\u2028", "\u0301"});

constexpr auto htmlPieces = std::to_array<Piece>({
    "<script", "<script>", "</script>", "</script >", "<style>", "</style>", "<STYLE", "<iframe",
    "</iframe>", "<frame", "<frameset", "<object>", "</object", "<embed", "<form>", "</form>", "<select",
    "<textarea", "</textarea>", "<button>", "<applet", "<input", "</input", "<link>", "<meta ", "<base",
    "<img", "<img src=", "<img src='a'>", "<img alt='b' src='m'>", "<img ", "<image", "src", " src=",
    " alt=", "alt = ''", "=", "'a'", "\"b\"", "'m'", "'", "\"", "'a&b'", "href=", "HREF = '", "xlink:href=",
    "action=", "formaction", "javascript:", "vbscript:", "data:text:", "JavaScript :", " onclick='c'",
    " onclick", " onload=", "\non", "onx=", "on", "x", ">", ">", "/>", "<", "</", "/", " ", " ", "\n", "\t",
    "\u00A0", "\u2028", "\u0085", "\v", "\f", "\x01", "é", "_", "-", "1", "http://c", "HTTPS://d", "./e:f",
    "g:h", "data:image/", "%41", "%C3%A9", "%", "%FF", "<scr<script></script>ipt>",
    // Letters that are folded to the letters of a name, and characters that word boundaries look through.
    "\u017Fcript", "<\u017Fcript", "java\u017Fcript:", "lin\u212A", "<lin\u212A", " on\u212A=y",
    "<\uFB06yle", "</\u017Ftyle>", "</\uFB06yle>", "\u0130mg", "\u0131nput", "\u1E97", "\u0301", "\u200D",
    "\u00AD", "<obj\u0301ect", "<img src=\"./e:f\">", "<img src=\"h%FF\">"});

// clang-format on

constexpr Piece definitions =
    "\n\n[a]: u\n[B  b]: <v w> \"t\"\n[c]: javascript:x\n[ ]: n\n[m]: m.png\n[*c*]: k 'l'\n[aa]: /é\n";

constexpr std::array documentKinds = std::to_array<Kind>({
    {"block characters", noPrefixes, blockCharacters, 30, 2},
    {"block pieces", noPrefixes, blockPieces, 4, 10},
    {"containers", containerPrefixes, blockPieces, 3, 9},
    {"lists", listPrefixes, listPieces, 2, 9},
    {"fences", containerPrefixes, fencePieces, 4, 8},
    {"headings", containerPrefixes, headingPieces, 5, 7},
    {"tables", containerPrefixes, tablePieces, 5, 6},
    {"raw HTML", containerPrefixes, rawPieces, 4, 7},
    {"references", containerPrefixes, referencePieces, 4, 8},
    {"front matter", noPrefixes, headerPieces, 2, 7, "---\n"},
    {"emphasis", noPrefixes, emphasisPieces, 20, 2},
    {"links", noPrefixes, linkPieces, 12, 2, "", definitions},
    {"angle brackets", noPrefixes, anglePieces, 16, 2},
    {"inline characters", noPrefixes, inlineCharacters, 30, 2, "", definitions},
});

constexpr Kind fragments{"HTML", noPrefixes, htmlPieces, 20, 1};

} // namespace

std::span<const Kind> kinds() { return documentKinds; }

const Kind& htmlKind() { return fragments; }

} // namespace quillmar::RandomMarkdown
