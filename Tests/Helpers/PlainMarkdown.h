#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The Markdown dialect written down plainly, so that the parser can be held against it: recursive, quadratic,
/// every pattern a regular expression, every rule one sentence of code. Texts are small and well-formed UTF-8,
/// but for those of `render` and `sanitizeHTML`; what bounds a large document's HTML (`MarkdownLimits`) is left
/// out.
namespace quillmar::PlainMarkdown {

using ImageResolver = std::function<std::optional<std::string>(const std::string&)>;
using Lines = std::vector<std::string>;           ///< without their line feeds
using Characters = std::u32string;                ///< code points
using Rest = std::pair<std::string, std::size_t>; ///< HTML, and the position behind what it was made of

/// The HTML of a document; ill-formed bytes are replacement characters in it.
std::string render(const std::string& markdown, const ImageResolver& resolveImage);

/// Raw HTML after the five passes of the filter.
std::string sanitizeHTML(const std::string& html, const ImageResolver& resolveImage);

// Characters

Characters characters(std::string_view text);
std::string utf8(const Characters& characters);
bool isWhiteSpace(char32_t character);          ///< the White_Space property
bool isTrimmed(char32_t character);             ///< general category Zs, or TAB
bool isPunctuationOrSymbol(char32_t character); ///< general categories P* and S*
bool isLetter(char32_t character);              ///< general category L*
bool isDigit(char32_t character);               ///< general category Nd
bool isAlphanumeric(char32_t character);        ///< general categories L*, M* and N*

// Lines

bool isBlank(const std::string& line);
std::size_t indentation(const std::string& line);
std::string trimmed(const std::string& text);
std::string withoutIndentation(const std::string& line, std::size_t atMost);
std::string expandLeadingTabs(const std::string& line);
std::string joined(const Lines& lines);
bool consistsOf(const std::string& text, char character); ///< true for the empty text

// Blocks

struct Fence {
    char character = '`';
    std::size_t length = 0;
    std::size_t indent = 0;
    std::optional<std::string> language;

    static std::optional<Fence> parse(const std::string& line);
    bool isClosedBy(const std::string& line) const;
};

struct ListMarker {
    bool ordered = false;
    char delimiter = '-';
    long start = 1;
    std::size_t indent = 0;
    std::size_t contentIndent = 0;
    std::string content;

    static std::optional<ListMarker> parse(const std::string& line);
};

struct Heading {
    std::size_t level = 1;
    std::string text;
};

struct Task {
    bool checked = false;
    std::string text;
};

std::optional<Heading> atxHeading(const std::string& line);
bool isThematicBreak(const std::string& line);
bool isQuote(const std::string& line);
std::string stripQuote(const std::string& line);
std::optional<Task> taskItem(const std::string& line);
bool isHTMLBlock(const std::string& line);
bool interrupts(const std::string& line);
std::string codeBlock(const Lines& lines, const std::optional<std::string>& language);

// Tables

using Alignments = std::vector<std::string>; ///< "left", "center", "right", or empty for none
std::vector<std::string> cells(const std::string& line);
std::optional<Alignments> tableDelimiter(const std::string& line);

// Links

struct Definition {
    std::string url;
    std::optional<std::string> title;
};

struct Link {
    Characters text; ///< raw
    std::string url;
    std::optional<std::string> title;
    std::size_t end = 0;
};

std::string normalizeLabel(const std::string& label);
std::string safeURL(const std::string& url);
std::string plainText(const std::string& text);

// Inlines

/// HTML when `count` is 0, otherwise a run of delimiters.
struct Node {
    std::string html;
    char32_t character = 0;
    std::size_t count = 0;
    bool canOpen = false;
    bool canClose = false;
};

std::size_t runLength(const Characters& characters, std::size_t at);
std::optional<std::size_t> closingBackticks(const Characters& characters, std::size_t from, std::size_t run);
std::string resolveEmphasis(std::vector<Node> nodes);
std::optional<Rest> bareURL(const Characters& characters, std::size_t at);

/// None, or the header's HTML; \p lines loses it.
std::optional<std::string> frontMatter(Lines& lines);

/// The rendering of one document.
class Parser {
public:
    explicit Parser(ImageResolver resolveImage) : resolveImage_(std::move(resolveImage)) {}

    std::string document(const std::string& markdown);
    Lines collectReferences(const Lines& lines);
    std::string slug(const std::string& heading);
    std::string blocks(const Lines& lines, bool tight);
    std::string inlines(const Characters& characters);
    std::string inlines(const std::string& text) { return inlines(characters(text)); }
    std::string sanitizeHTML(const std::string& html) const;

private:
    ImageResolver resolveImage_;
    std::map<std::string, Definition> references_;
    std::map<std::string, std::size_t> slugs_;

    // Each takes the lines from \p i on that belong to it.
    static std::string fencedCode(const Lines& lines, std::size_t& i, const Fence& fence);
    static std::string indentedCode(const Lines& lines, std::size_t& i);
    std::string heading(const Heading& heading);
    std::string quote(const Lines& lines, std::size_t& i);
    std::string list(const Lines& lines, std::size_t& i, const ListMarker& first);
    std::string listHTML(const std::vector<Lines>& items, const ListMarker& first, bool tight);
    std::string htmlBlock(const Lines& lines, std::size_t& i) const;
    std::string paragraph(const Lines& lines, std::size_t& i, bool tight);
    std::string table(const Lines& lines, std::size_t& i, const Alignments& alignments);
    std::string row(const std::vector<std::string>& cells, const Alignments& alignments,
                    const std::string& tag);

    std::optional<Link> parseLink(const Characters& characters, std::size_t at) const;
    std::optional<Link> reference(const Characters& text, const Characters& label, std::size_t end) const;
    std::string link(const Link& link);
    std::string image(const Link& link) const;
    std::optional<Rest> angleBracket(const Characters& characters, std::size_t at) const;
    std::optional<std::string> imageSource(const std::string& source) const;
    std::string imageTag(const std::string& tag) const;
};

} // namespace quillmar::PlainMarkdown
