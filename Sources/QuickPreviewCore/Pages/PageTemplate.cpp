#include "Pages/PageTemplate.h"

#include "Pages/Stylesheet.h"
#include "Platform/ByteCountFormat.h"
#include "Support/DecimalText.h"
#include "Support/HTML.h"
#include "Support/SaturatingSum.h"

#include <algorithm>
#include <array>

namespace quillmar::PageTemplate {
namespace {

struct KindStyle {
    std::string_view colour;
    std::string_view label;
};

/// In the order of `FileKind`. Pictures, films and sounds share a colour: the legend tells them apart.
constexpr std::array<KindStyle, allFileKinds.size()> kindStyles{{
    {"#A8A8A8", "Folders"},
    {"#4A54F2", "Apps"},
    {"#8C4DED", "Documents"},
    {"#E659AD", "Images"},
    {"#E659AD", "Video"},
    {"#E659AD", "Audio"},
    {"#2A9DB0", "Code"},
    {"#D9A23A", "Archives"},
    {"#D4D4D4", "Other"},
}};

const KindStyle& styleOf(FileKind kind) { return kindStyles[static_cast<std::size_t>(kind)]; }

/// Percent of the whole. With the segment's least width it keeps tiny kinds visible.
constexpr double leastShare = 0.6;

/// Entries; more would wrap into a second line of noise.
constexpr std::size_t legendLimit = 6;

} // namespace

std::string documentStart(std::string_view title, std::string_view bodyClass, std::size_t bodyBytes) {
    constexpr std::size_t frameBytes = 1'024; // the tags around title and body, generously
    std::string html;
    html.reserve(stylesheet.size() + bodyBytes + title.size() + frameBytes);
    html += "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"color-scheme\" content=\"light dark\">\n<title>";
    HTML::appendEscaped(html, title);
    html += "</title>\n<style>";
    html += stylesheet;
    html += "</style>\n</head>\n<body class=\"";
    html += bodyClass;
    html += "\">\n";
    return html;
}

std::string document(std::string_view title, std::string_view bodyClass, std::string_view body) {
    return documentStart(title, bodyClass, body.size()).append(body).append(documentEnd);
}

std::string header(const std::optional<std::string>& icon, std::string_view title,
                   const std::vector<std::string>& facts, const std::vector<std::string>& badges) {
    std::string html = "<header class=\"header\">\n";
    if (icon)
        html += "<img class=\"icon\" src=\"" + HTML::escape(*icon) + "\" alt=\"\">";
    else
        html += "<div class=\"icon placeholder\"></div>";
    html += "\n<div class=\"titles\">\n<h1>";
    HTML::appendEscaped(html, title);
    for (const auto& badge : badges) html += "<span class=\"badge\">" + HTML::escape(badge) + "</span>";
    html += "</h1>\n<p class=\"facts\">";
    for (std::size_t i = 0; i < facts.size(); ++i) {
        if (i > 0) html += "<span class=\"dot\">·</span>";
        HTML::appendEscaped(html, facts[i]);
    }
    html += "</p>\n</div>\n</header>";
    return html;
}

std::string stats(const std::vector<std::pair<std::string, std::string>>& figures) {
    std::string html = "<div class=\"stats\">";
    for (const auto& [label, value] : figures)
        html += "<div><span>" + HTML::escape(label) + "</span><b>" + HTML::escape(value) + "</b></div>";
    return html + "</div>";
}

std::string hero(std::string_view value, std::string_view caption) {
    return "<div class=\"hero\"><b>" + HTML::escape(value) + "</b><span>" + HTML::escape(caption) +
           "</span></div>";
}

std::string notice(std::string_view text) { return "<p class=\"notice\">" + HTML::escape(text) + "</p>"; }

std::string composition(const std::vector<CompositionPart>& parts) {
    std::int64_t total = 0;
    std::vector<CompositionPart> shown;
    for (const auto& part : parts) {
        total = saturatingSum(total, part.size);
        if (part.size >= 1) shown.push_back(part);
    }
    if (total < 1 || shown.empty()) return {};

    std::string bar;
    std::string legend;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const auto& [kind, size, count] = shown[i];
        const auto& [colour, label] = styleOf(kind);
        const double share = static_cast<double>(size) / static_cast<double>(total) * 100;
        bar.append("<span style=\"flex-grow:").append(decimalText(std::max(share, leastShare), 2));
        bar.append(";background:").append(colour).append("\"></span>");
        if (i >= legendLimit) continue;
        legend.append("<span class=\"legend-item\"><i style=\"background:").append(colour).append("\"></i>");
        legend.append(label).append("<b>").append(formattedSize(size)).append("</b></span>");
    }
    return "<div class=\"composition\"><div class=\"bar\">" + bar + "</div><div class=\"legend\">" + legend +
           "</div></div>";
}

} // namespace quillmar::PageTemplate
