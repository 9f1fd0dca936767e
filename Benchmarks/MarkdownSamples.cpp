#include "Benchmarks/MarkdownSamples.h"

#include <array>
#include <string_view>

namespace quillmar::MarkdownSamples {
namespace {

/// Frequent words first: every second choice leans towards the beginning.
constexpr std::array<std::string_view, 124> words{
    "the",        "a",         "of",          "to",
    "is",         "and",       "in",          "that",
    "it",         "for",       "with",        "be",
    "are",        "on",        "if",          "you",
    "this",       "can",       "by",          "or",
    "not",        "as",        "will",        "from",
    "when",       "an",        "bed",         "plant",
    "at",         "each",      "have",        "which",
    "all",        "only",      "garden",      "use",
    "one",        "it's",      "don't",       "its",
    "water",      "may",       "seed",        "there",
    "more",       "before",    "than",        "file",
    "does",       "soil",      "other",       "after",
    "name",       "set",       "them",        "first",
    "row",        "default",   "must",        "time",
    "any",        "list",      "into",        "also",
    "year",       "note",      "value",       "root",
    "should",     "open",      "change",      "frost",
    "leaf",       "without",   "returned",    "new",
    "because",    "option",    "two",         "weather",
    "same",       "where",     "between",     "harvest",
    "start",      "every",     "greenhouse",  "called",
    "number",     "sensor",    "valve",       "north",
    "schedule",   "compost",   "example",     "plan",
    "calendar",   "spring",    "planted",     "measured",
    "neighbour",  "message",   "season",      "later",
    "irrigation", "hose",      "version",     "beans",
    "command",    "watering",  "tomatoes",    "overwintering",
    "threshold",  "mulch",     "until",       "optional",
    "forecast",   "behaviour", "temperature", "configuration",
    "rotation",   "perennial", "automatic",   "germination",
};

constexpr std::array<std::string_view, 12> foreignWords{
    "café", "Größe", "naïve", "jardín", "façade", "сад", "полив", "庭", "水やり", "θερμοκρασία", "정원", "🌱",
};

constexpr std::array<std::string_view, 16> identifiers{
    "garden.plan", "Bed",         "waterAll()", "--dry-run",  "next_frost",  "std::optional<Row>",
    "config.yaml", "null",        "true",       "rows[0]",    "garden init", "GARDEN_HOME",
    "--beds=4",    "on_rain(mm)", "npm test",   "\"spring\"",
};

constexpr std::array<std::string_view, 8> titles{
    "Installation", "Usage", "Options", "Example", "Configuration", "Notes", "Changes", "License",
};

struct Snippet {
    std::string_view language;
    std::array<std::string_view, 10> lines; ///< an empty one at the end is none
};

constexpr std::array<Snippet, 5> snippets{{
    {"sh",
     {"$ garden init --beds 12", "$ cd allotment; garden plan > plan.txt", "", "# water what is dry",
      "for bed in $(garden list --dry); do", "    garden water \"$bed\" --litres 5", "done",
      "$ garden status | grep -v '^#'", "12 beds, 3 dry, <1 frost day", ""}},
    {"js",
     {"const { Garden } = require('garden');", "", "const garden = new Garden({ beds: 12, dry: true });",
      "garden.on('frost', (night) => {", "  for (const bed of garden.beds) {",
      "    if (bed.height < 20 && !bed.covered) bed.cover();", "  }", "  console.log(`${night}: covered`);",
      "});", "// => 12"}},
    {"cpp",
     {"#include <garden/bed.h>", "", "template <typename Plant>",
      "double remaining(const std::vector<Plant>& bed) {", "    double sum = 0;",
      "    for (const auto& plant : bed) sum += plant.height();", "    return sum; // in cm", "}", "", ""}},
    {"json",
     {"{", "  \"beds\": [", "    { \"name\": \"north\", \"rows\": 4, \"sun\": 0.5 },",
      "    { \"name\": \"south\", \"rows\": 6, \"sun\": 0.9 }", "  ],", "  \"valve\": null,",
      "  \"notes\": \"don't water <b>at noon</b>\"", "}", "", ""}},
    {"",
     {"north  4 rows  dry", "south  6 rows  wet", "------------------", "     10 rows", "", "* 3 days to frost",
      "", "garden: error: no bed called \"west\"", "    at plan.txt:17", ""}},
}};

/// What a document is made of: blocks by their share among a hundred and more, links and such by how often they
/// come among a thousand words.
struct Mix {
    unsigned paragraphs = 75;
    unsigned lists = 24;
    unsigned code = 36;
    unsigned tables = 3;
    unsigned quotes = 3;
    unsigned html = 5;
    unsigned images = 6;
    unsigned emphasis = 16;
    unsigned codeSpans = 48;
    unsigned links = 18;
    unsigned rest = 16; ///< escapes, tags, bare addresses and references
    unsigned foreign = 5;
    bool isWrapped = true; ///< lines of 80 columns; otherwise a paragraph is one line
};

constexpr Mix essay{.lists = 0,
                    .code = 0,
                    .tables = 0,
                    .quotes = 0,
                    .html = 0,
                    .images = 0,
                    .emphasis = 8,
                    .codeSpans = 4,
                    .links = 4,
                    .rest = 2,
                    .foreign = 3};

char upperCased(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
}

class Writer {
public:
    Writer(const Mix& mix, std::uint64_t seed) : mix_(mix), state_(seed) {}

    /// Ends with the chapter's definitions, and so a little behind \p bytes.
    std::string document(std::size_t bytes) {
        heading(1);
        while (text_.size() < bytes) {
            for (auto sections = 2 + random(8); sections > 0 && text_.size() < bytes; --sections) {
                for (auto blocks = 1 + random(5); blocks > 0 && text_.size() < bytes; --blocks) block();
                if (sections > 1 && text_.size() < bytes) section();
            }
            definitions();
        }
        return std::move(text_);
    }

    /// At most \p bytes, ended behind a whole line.
    std::string paragraphs(std::size_t bytes) {
        while (text_.size() < bytes) paragraph();
        text_.resize(text_.rfind('\n', bytes - 1) + 1);
        return std::move(text_);
    }

private:
    /// Below \p bound. (splitmix64)
    std::size_t random(std::size_t bound) {
        state_ += 0x9E37'79B9'7F4A'7C15;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58'476D'1CE4'E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D0'49BB'1331'11EB;
        return (mixed ^ (mixed >> 31)) % bound;
    }
    bool oneIn(std::size_t count) { return random(count) == 0; }
    template <typename Values>
    const auto& oneOf(const Values& values) {
        return values[random(values.size())];
    }

    std::string word() {
        if (random(1'000) < mix_.foreign) return std::string(oneOf(foreignWords));
        const std::size_t rank = random(words.size());
        return std::string(words[oneIn(2) ? rank : rank * random(words.size()) / words.size()]);
    }

    std::string someWords(std::size_t count) {
        std::string some = word();
        while (--count > 0) some.append(" ").append(word());
        return some;
    }

    std::string address() {
        std::string url = oneIn(2) ? "https://garden.example/" : "https://www.allotment.example/docs/";
        url.append(words[40 + random(80)]);
        if (oneIn(3)) url.append("#").append(words[40 + random(80)]);
        if (oneIn(8)) url.append("?bed=4&row=").append(std::to_string(random(100)));
        return url;
    }

    std::string link() {
        const std::string shown =
            oneIn(4) ? std::string("`").append(oneOf(identifiers)).append("`") : someWords(1 + random(3));
        if (oneIn(6)) {
            labels_.push_back(someWords(1 + random(2)));
            if (oneIn(3)) return std::string("[").append(labels_.back()).append("]");
            return std::string("[").append(shown).append("][").append(labels_.back()).append("]");
        }
        std::string destination =
            oneIn(3) ? std::string("docs/").append(words[40 + random(80)]).append(".md") : address();
        if (oneIn(12)) destination.append(" \"").append(someWords(3)).append("\"");
        return std::string("[").append(shown).append("](").append(destination).append(")");
    }

    /// What is rarer than links.
    std::string rarity() {
        switch (random(12)) {
        case 0: return std::string("<").append(address()).append(">");
        case 1:
        case 2: return address();
        case 3: return std::string("<kbd>").append(word()).append("</kbd>");
        case 4: return std::string("<br>");
        case 5: return std::string("<a href=\"").append(address()).append("\">").append(word()).append("</a>");
        case 6: return std::string("\\*").append(word());
        case 7: return std::string("~~").append(someWords(2)).append("~~");
        case 8: return std::string("next_") + word() + "_day";
        case 9: return std::string("[") + word() + "]";
        case 10: return std::string("R&D");
        default: return std::string("3 * 4 < 13");
        }
    }

    std::string phrase() {
        std::size_t choice = random(1'000);
        const auto isIn = [&choice](std::size_t share) {
            if (choice < share) return true;
            choice -= share;
            return false;
        };
        if (isIn(mix_.codeSpans)) return std::string("`").append(oneOf(identifiers)).append("`");
        if (isIn(mix_.links)) return link();
        if (isIn(mix_.rest)) return rarity();
        if (isIn(mix_.emphasis)) {
            static constexpr std::array<std::string_view, 5> marks{"**", "**", "**", "*", "_"};
            const std::string_view mark = oneOf(marks);
            return std::string(mark).append(someWords(1 + random(3))).append(mark);
        }
        return word();
    }

    /// Appends sentences, the first line of which stands behind \p column bytes and the others behind \p
    /// indent.
    void sentences(std::size_t count, std::string_view indent) {
        std::size_t column = indent.size();
        for (; count > 0; --count) {
            bool isFirst = true;
            for (auto left = 5 + random(16); left > 0; --left) {
                std::string next = phrase();
                if (isFirst) next[0] = upperCased(next[0]);
                isFirst = false;
                if (left == 1)
                    next += oneIn(20) ? ':' : '.';
                else if (oneIn(12))
                    next += ',';
                if (column > indent.size()) {
                    const bool breaks = mix_.isWrapped && column + next.size() > 79;
                    text_.append(breaks ? "\n" : " ");
                    if (breaks) text_.append(indent);
                    column = breaks ? indent.size() : column + 1;
                }
                column += next.size();
                text_.append(next);
            }
        }
        if (oneIn(40)) text_.append("  \n").append(indent).append(phrase());
        text_ += '\n';
    }

    void heading(std::size_t level) {
        const std::string title = oneIn(3) ? std::string(oneOf(titles)) : someWords(1 + random(4));
        if (level < 3 && oneIn(12)) {
            text_.append(title).append("\n").append(title.size(), level == 1 ? '=' : '-').append("\n\n");
            return;
        }
        text_.append(level + random(2), '#').append(" ").append(title);
        if (oneIn(4)) text_.append(" `").append(oneOf(identifiers)).append("`");
        text_.append("\n\n");
    }

    void section() {
        heading(oneIn(3) ? 2 : 3);
        paragraph();
    }

    void paragraph() {
        sentences(1 + random(5), "");
        text_ += '\n';
    }

    void list() {
        const std::size_t kind = random(8);
        const std::string_view bullet = oneIn(3) ? "* " : "- ";
        const bool isLoose = oneIn(5);
        const std::size_t items = 2 + random(8);
        for (std::size_t i = 1; i <= items; ++i) {
            const std::string marker = kind == 0 ? std::to_string(i) + ". " : std::string(bullet);
            const std::string indent(marker.size(), ' ');
            text_.append(marker);
            if (kind == 1) text_.append(oneIn(2) ? "[x] " : "[ ] ");
            sentences(1 + random(2), indent);
            if (kind < 4 && oneIn(3)) {
                for (auto nested = 1 + random(3); nested > 0; --nested) {
                    text_.append(indent).append(bullet);
                    sentences(1, indent + "  ");
                }
            }
            if (isLoose) text_ += '\n';
        }
        text_ += '\n';
    }

    void code() {
        const Snippet& snippet = oneOf(snippets);
        const bool isFenced = !oneIn(10);
        if (isFenced) text_.append("```").append(snippet.language).append("\n");
        for (auto repeats = oneIn(4) ? 3 : 1; repeats > 0; --repeats) {
            for (auto line = random(4); line < snippet.lines.size(); ++line) {
                if (line + 2 >= snippet.lines.size() && snippet.lines[line].empty()) break;
                text_.append(isFenced ? "" : "    ").append(snippet.lines[line]).append("\n");
            }
        }
        text_.append(isFenced ? "```\n\n" : "\n");
    }

    void table() {
        text_.append("| Option | Default | What it does |\n| --- | :---: | --- |\n");
        for (auto rows = 3 + random(10); rows > 0; --rows) {
            text_.append("| `").append(oneOf(identifiers)).append("` | ").append(word()).append(" | ");
            for (auto left = 3 + random(10); left > 0; --left) text_.append(phrase()).append(" ");
            text_.append("|\n");
        }
        text_ += '\n';
    }

    void quote() {
        text_.append("> ");
        if (oneIn(2)) text_.append("**Note:** ");
        sentences(1 + random(3), "> ");
        text_ += '\n';
    }

    void html() {
        switch (random(3)) {
        case 0:
            text_.append("<p align=\"center\">\n  <a href=\"").append(address()).append("\">\n");
            text_.append("    <img src=\"https://img.garden.example/logo.svg\" alt=\"").append(word());
            text_.append("\" width=\"200\">\n  </a>\n</p>\n\n");
            return;
        case 1:
            text_.append("<details>\n<summary>").append(someWords(3)).append("</summary>\n\n");
            paragraph();
            text_.append("</details>\n\n");
            return;
        default: text_.append("<!-- ").append(someWords(8)).append(" -->\n\n");
        }
    }

    void images() {
        if (oneIn(3)) {
            text_.append("![")
                .append(someWords(3))
                .append("](images/")
                .append(words[40 + random(80)])
                .append(".png)\n\n");
            return;
        }
        for (auto badges = 1 + random(4); badges > 0; --badges) {
            text_.append("[![").append(word()).append("](https://img.garden.example/badge/").append(word());
            text_.append(".svg)](").append(address()).append(")\n");
        }
        text_ += '\n';
    }

    void block() {
        std::size_t choice = random(mix_.paragraphs + mix_.lists + mix_.code + mix_.tables + mix_.quotes +
                                    mix_.html + mix_.images);
        const auto isIn = [&choice](std::size_t share) {
            if (choice < share) return true;
            choice -= share;
            return false;
        };
        if (isIn(mix_.paragraphs)) return paragraph();
        if (isIn(mix_.lists)) return list();
        if (isIn(mix_.code)) return code();
        if (isIn(mix_.tables)) return table();
        if (isIn(mix_.quotes)) return quote();
        if (isIn(mix_.html)) return html();
        images();
    }

    /// Of the references since the last ones.
    void definitions() {
        if (labels_.empty()) return;
        for (const auto& label : labels_) {
            text_.append("[").append(label).append("]: ").append(address());
            if (oneIn(6)) text_.append(" \"").append(someWords(2)).append("\"");
            text_ += '\n';
        }
        text_ += '\n';
        labels_.clear();
    }

    Mix mix_;
    std::uint64_t state_;
    std::string text_;
    std::vector<std::string> labels_;
};

} // namespace

std::string documentation(std::size_t bytes, std::uint64_t seed) {
    Mix mix;
    mix.code = 110; // manuals have more of it than READMEs
    return Writer(mix, seed).document(bytes);
}

std::vector<std::string> readmes() {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < 50; ++i) {
        Mix mix;
        mix.isWrapped = i % 2 == 0;
        if (i % 10 == 3) mix.lists = 150, mix.links = 80;       // a collection of links
        if (i % 10 == 5) mix.code = 150, mix.codeSpans = 90;    // an interface
        if (i % 10 == 7) mix.tables = 60, mix.codeSpans = 70;   // options
        if (i % 10 == 8) mix.html = 30, mix.images = 20;        // a shop window
        if (i % 10 == 9) mix.foreign = 800, mix.codeSpans = 20; // in another language
        all.push_back(Writer(mix, 1'000 + i).document(3'000 + i * i * 15));
    }
    return all;
}

std::string prose(std::size_t bytes) { return Writer(essay, 1).paragraphs(bytes); }

} // namespace quillmar::MarkdownSamples
