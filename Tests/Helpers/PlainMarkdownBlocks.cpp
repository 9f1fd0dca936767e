#include "Tests/Helpers/PlainMarkdown.h"

#include "Platform/Text.h"
#include "Support/HTML.h"
#include "Tests/Helpers/RegularExpression.h"

#include <algorithm>
#include <string>

namespace quillmar::PlainMarkdown {
namespace {

void removeTrailingBlankLines(Lines& lines) {
    while (!lines.empty() && isBlank(lines.back())) lines.pop_back();
}

std::string withoutOuterLineFeeds(const std::string& html) {
    const std::size_t first = html.find_first_not_of('\n');
    if (first == std::string::npos) return {};
    return html.substr(first, html.find_last_not_of('\n') - first + 1);
}

} // namespace

// NOLINTBEGIN(misc-no-recursion): the plain model follows the nesting of its small input.

std::string Parser::blocks(const Lines& lines, bool tight) {
    std::string html;
    std::size_t i = 0;
    while (i < lines.size()) {
        const std::string& line = lines[i];
        if (isBlank(line)) {
            ++i;
        } else if (const auto fence = Fence::parse(line)) {
            html += fencedCode(lines, i, *fence);
        } else if (const auto atx = atxHeading(line)) {
            html += heading(*atx);
            ++i;
        } else if (isThematicBreak(line)) {
            html += "<hr>\n";
            ++i;
        } else if (isQuote(line)) {
            html += quote(lines, i);
        } else if (indentation(line) >= 4) {
            html += indentedCode(lines, i);
        } else if (const auto marker = ListMarker::parse(line)) {
            html += list(lines, i, *marker);
        } else if (isHTMLBlock(line)) {
            html += htmlBlock(lines, i);
        } else {
            std::optional<Alignments> alignments;
            if (i + 1 < lines.size() && line.find('|') != std::string::npos)
                alignments = tableDelimiter(lines[i + 1]);
            if (alignments && cells(line).size() == alignments->size())
                html += table(lines, i, *alignments);
            else
                html += paragraph(lines, i, tight);
        }
    }
    return html;
}

std::optional<Fence> Fence::parse(const std::string& line) {
    const std::size_t indent = indentation(line);
    if (indent >= 4) return std::nullopt;
    const std::string rest = line.substr(indent);
    if (rest.empty() || (rest[0] != '`' && rest[0] != '~')) return std::nullopt;
    const std::size_t length = std::min(rest.find_first_not_of(rest[0]), rest.size());
    if (length < 3) return std::nullopt;
    const std::string info = trimmed(rest.substr(length));
    if (rest[0] == '`' && info.find('`') != std::string::npos) return std::nullopt;
    Fence fence{rest[0], length, indent, std::nullopt};
    if (!info.empty()) fence.language = info.substr(0, info.find(' '));
    return fence;
}

bool Fence::isClosedBy(const std::string& line) const {
    const std::string text = trimmed(line);
    return indentation(line) < 4 && text.size() >= length && consistsOf(text, character);
}

std::string Parser::fencedCode(const Lines& lines, std::size_t& i, const Fence& fence) {
    Lines content;
    for (++i; i < lines.size(); ++i) {
        if (fence.isClosedBy(lines[i])) {
            ++i;
            break;
        }
        content.push_back(withoutIndentation(lines[i], fence.indent));
    }
    return codeBlock(content, fence.language);
}

std::string codeBlock(const Lines& lines, const std::optional<std::string>& language) {
    std::string html = "<pre><code";
    if (language) {
        html += " class=\"language-";
        html += HTML::escape(*language);
        html += "\"";
    }
    html += ">";
    const std::string code = joined(lines);
    html += HTML::escape(code);
    if (!code.empty()) html += "\n";
    return html += "</code></pre>\n";
}

std::string Parser::indentedCode(const Lines& lines, std::size_t& i) {
    Lines content;
    for (; i < lines.size() && (isBlank(lines[i]) || indentation(lines[i]) >= 4); ++i)
        content.push_back(withoutIndentation(lines[i], 4));
    removeTrailingBlankLines(content);
    return codeBlock(content, std::nullopt);
}

std::optional<Heading> atxHeading(const std::string& line) {
    static const RegularExpression closingSequence(R"re(\s+#+$)re");
    if (indentation(line) > 3) return std::nullopt;
    const std::string text = trimmed(line);
    const std::size_t level = std::min(text.find_first_not_of('#'), text.size());
    if (level < 1 || level > 6) return std::nullopt;
    if (level < text.size() && text[level] != ' ') return std::nullopt;
    const std::string remainder = trimmed(text.substr(level));
    if (const auto match = closingSequence.firstMatch(remainder))
        return Heading{level, remainder.substr(0, match->start)};
    if (consistsOf(remainder, '#')) return Heading{level, ""};
    return Heading{level, remainder};
}

std::string Parser::heading(const Heading& heading) {
    const std::string level = std::to_string(heading.level);
    std::string html = "<h";
    html.append(level).append(" id=\"").append(slug(heading.text)).append("\">");
    html.append(inlines(heading.text)).append("</h").append(level).append(">\n");
    return html;
}

bool isThematicBreak(const std::string& line) {
    if (indentation(line) > 3) return false;
    Characters marks = characters(line);
    std::erase_if(marks, isWhiteSpace);
    if (marks.size() < 3) return false;
    if (marks[0] != U'-' && marks[0] != U'*' && marks[0] != U'_') return false;
    return marks.find_first_not_of(marks[0]) == Characters::npos;
}

bool isQuote(const std::string& line) { return indentation(line) < 4 && trimmed(line).starts_with('>'); }

std::string stripQuote(const std::string& line) {
    Characters rest = characters(line);
    while (!rest.empty() && isTrimmed(rest.front())) rest.erase(0, 1);
    rest.erase(0, 1);
    if (rest.starts_with(U' ')) rest.erase(0, 1);
    return utf8(rest);
}

std::string Parser::quote(const Lines& lines, std::size_t& i) {
    Lines content;
    for (; i < lines.size(); ++i) {
        if (isQuote(lines[i])) {
            content.push_back(stripQuote(lines[i]));
            continue;
        }
        if (isBlank(lines[i])) break;
        if (content.empty() || isBlank(content.back())) break;
        if (interrupts(lines[i])) break;
        content.push_back(lines[i]);
    }
    std::string html = "<blockquote>\n";
    html += blocks(content, false);
    return html += "</blockquote>\n";
}

std::optional<ListMarker> ListMarker::parse(const std::string& line) {
    ListMarker marker;
    marker.indent = indentation(line);
    if (marker.indent > 3) return std::nullopt;
    std::string rest = line.substr(marker.indent);
    if (rest.empty()) return std::nullopt;

    std::size_t width = 1;
    if (rest[0] != '-' && rest[0] != '*' && rest[0] != '+') {
        const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
        if (digits < 1 || digits > 9 || digits == rest.size()) return std::nullopt;
        if (rest[digits] != '.' && rest[digits] != ')') return std::nullopt;
        marker.ordered = true;
        marker.start = std::stol(rest.substr(0, digits));
        width = digits + 1;
    }
    marker.delimiter = rest[width - 1];

    rest = rest.substr(width);
    if (!rest.empty() && rest[0] != ' ') return std::nullopt;
    const std::size_t spaces = indentation(rest);
    const std::size_t padding = spaces >= 1 && spaces <= 4 && spaces < rest.size() ? spaces : 1;
    marker.contentIndent = marker.indent + width + padding;
    marker.content = rest.substr(std::min(rest.size(), padding));
    return marker;
}

std::string Parser::list(const Lines& lines, std::size_t& i, const ListMarker& first) {
    std::vector<Lines> items;
    Lines item = {first.content};
    ListMarker current = first;
    bool loose = false;
    for (++i; i < lines.size(); ++i) {
        bool followsBlank = false;
        for (; i < lines.size() && isBlank(lines[i]); ++i) {
            item.emplace_back();
            followsBlank = true;
        }
        if (i == lines.size()) break;

        const std::string& line = lines[i];
        if (indentation(line) >= current.contentIndent) {
            if (followsBlank && !std::ranges::all_of(item, isBlank)) loose = true;
            item.push_back(line.substr(current.contentIndent));
            continue;
        }
        const auto marker = ListMarker::parse(line);
        if (marker && !isThematicBreak(line)) {
            const bool sameKind = marker->ordered == current.ordered && marker->delimiter == current.delimiter;
            if (sameKind && marker->indent <= current.indent) {
                items.push_back(item);
                item = {marker->content};
                if (followsBlank) loose = true;
                current = *marker;
            } else if (marker->indent <= current.indent || marker->indent < 2) {
                break;
            } else {
                item.push_back(withoutIndentation(line, current.contentIndent));
            }
        } else {
            if (followsBlank || interrupts(line)) break;
            item.push_back(trimmed(line));
        }
    }
    items.push_back(item);
    return listHTML(items, first, !loose);
}

std::string Parser::listHTML(const std::vector<Lines>& items, const ListMarker& first, bool tight) {
    std::string itemsHTML;
    bool hasTasks = false;
    for (Lines item : items) {
        removeTrailingBlankLines(item);
        const auto task = item.empty() ? std::nullopt : taskItem(item[0]);
        itemsHTML += "<li";
        if (task) {
            hasTasks = true;
            item[0] = task->text;
            itemsHTML += " class=\"task\"><input type=\"checkbox\" disabled";
            if (task->checked) itemsHTML += " checked";
            itemsHTML += "> ";
        } else {
            itemsHTML += ">";
        }
        itemsHTML += withoutOuterLineFeeds(blocks(item, tight));
        itemsHTML += "</li>\n";
    }
    const std::string tag = first.ordered ? "ol" : "ul";
    std::string html = "<";
    html += tag;
    if (first.ordered && first.start != 1)
        html.append(" start=\"").append(std::to_string(first.start)).append("\"");
    if (hasTasks) html += " class=\"tasks\"";
    return html.append(">\n").append(itemsHTML).append("</").append(tag).append(">\n");
}

std::optional<Task> taskItem(const std::string& line) {
    const std::string lower = lowercased(line);
    const bool isTask =
        lower.starts_with("[ ] ") || lower.starts_with("[x] ") || lower == "[ ]" || lower == "[x]";
    if (!isTask) return std::nullopt;
    return Task{lower.starts_with("[x]"), trimmed(line.substr(3))};
}

bool isHTMLBlock(const std::string& line) {
    static const RegularExpression tagStart(R"re(^</?[A-Za-z][A-Za-z0-9-]*(\s|/?>|$))re");
    if (indentation(line) > 3) return false;
    const std::string text = trimmed(line);
    return text.starts_with("<!--") || tagStart.matchesIn(text);
}

std::string Parser::htmlBlock(const Lines& lines, std::size_t& i) const {
    Lines content;
    if (trimmed(lines[i]).starts_with("<!--")) {
        bool closed = false;
        for (; i < lines.size() && !closed; ++i) {
            content.push_back(lines[i]);
            closed = lines[i].find("-->") != std::string::npos;
        }
    } else {
        for (; i < lines.size() && !isBlank(lines[i]); ++i) content.push_back(lines[i]);
    }
    return sanitizeHTML(joined(content)) + "\n";
}

std::string Parser::paragraph(const Lines& lines, std::size_t& i, bool tight) {
    Lines content = {lines[i]};
    std::size_t level = 0;
    for (++i; i < lines.size() && level == 0; ++i) {
        const std::string& line = lines[i];
        if (isBlank(line)) break;
        const std::string text = trimmed(line);
        const bool mayUnderline = indentation(line) < 4 && !text.empty();
        if (mayUnderline && consistsOf(text, '='))
            level = 1;
        else if (mayUnderline && consistsOf(text, '-'))
            level = 2;
        else if (interrupts(line))
            break;
        else
            content.push_back(line);
    }
    for (std::string& line : content) line = line.substr(indentation(line));
    if (level > 0) return heading({level, joined(content)});
    const std::string html = inlines(trimmed(joined(content)));
    if (tight) return html + "\n";
    return std::string("<p>").append(html).append("</p>\n");
}

bool interrupts(const std::string& line) {
    if (Fence::parse(line) || atxHeading(line) || isThematicBreak(line) || isQuote(line) || isHTMLBlock(line))
        return true;
    const auto marker = ListMarker::parse(line);
    return marker && !isBlank(marker->content) && (!marker->ordered || marker->start == 1);
}

// Tables

std::string Parser::table(const Lines& lines, std::size_t& i, const Alignments& alignments) {
    std::string html = "<table>\n<thead>\n";
    html += row(cells(lines[i]), alignments, "th");
    html += "</thead>\n<tbody>\n";
    for (i += 2; i < lines.size(); ++i) {
        const std::string& line = lines[i];
        if (isBlank(line) || line.find('|') == std::string::npos || interrupts(line)) break;
        html += row(cells(line), alignments, "td");
    }
    return html += "</tbody>\n</table>\n";
}

std::string Parser::row(const std::vector<std::string>& cells, const Alignments& alignments,
                        const std::string& tag) {
    std::string html = "<tr>";
    for (std::size_t k = 0; k < alignments.size(); ++k) {
        html.append("<").append(tag);
        if (!alignments[k].empty()) html.append(" style=\"text-align:").append(alignments[k]).append("\"");
        html.append(">").append(k < cells.size() ? inlines(cells[k]) : "").append("</").append(tag).append(">");
    }
    return html += "</tr>\n";
}

// NOLINTEND(misc-no-recursion)

std::vector<std::string> cells(const std::string& line) {
    std::string rest = trimmed(line);
    if (rest.starts_with('|')) rest.erase(0, 1);
    if (rest.ends_with('|') && !rest.ends_with("\\|")) rest.pop_back();

    std::vector<std::string> result;
    std::string cell;
    char previous = ' ';
    bool inCode = false;
    for (const char character : rest) {
        if (character == '`') inCode = !inCode;
        if (character == '|' && previous == '\\') {
            cell.back() = '|';
        } else if (character == '|' && !inCode) {
            result.push_back(trimmed(cell));
            cell.clear();
        } else {
            cell += character;
        }
        previous = character;
    }
    result.push_back(trimmed(cell));
    return result;
}

std::optional<Alignments> tableDelimiter(const std::string& line) {
    static const RegularExpression delimiterCell(R"re(^:?-+:?$)re");
    if (line.find('-') == std::string::npos) return std::nullopt;
    Alignments alignments;
    for (const std::string& cell : cells(line)) {
        if (!delimiterCell.matchesIn(cell)) return std::nullopt;
        const bool left = cell.starts_with(':');
        const bool right = cell.ends_with(':');
        alignments.emplace_back(left && right ? "center" : left ? "left" : right ? "right" : "");
    }
    return alignments;
}

} // namespace quillmar::PlainMarkdown
