#include "QuillmarQuickLook/PreviewWriter.h"

#include "QuillmarQuickLook/Base64.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <system_error>
#include <utility>

namespace quillmar::PreviewWriter {
namespace {

[[noreturn]] void failWriting(const std::string& path, int code) {
    const std::string place = path == "-" ? "standard output" : "“" + path + "”";
    throw WriteError("cannot write to " + place + ": " + std::generic_category().message(code));
}

/// A file that is being written. Standard output for "-".
class OutputFile {
public:
    explicit OutputFile(std::string path)
        : path_(std::move(path)), file_(path_ == "-" ? stdout : std::fopen(path_.c_str(), "wbe")) {
        if (file_ == nullptr) failWriting(path_, errno);
    }
    ~OutputFile() {
        if (file_ != nullptr && file_ != stdout) std::fclose(file_);
    }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(DataView data) {
        if (std::fwrite(data.data(), 1, data.size(), file_) != data.size()) failWriting(path_, errno);
    }
    /// Reports what writing did not: a disk may turn out to be full only now, one across a network even later.
    void finish() {
        if (std::fflush(file_) != 0) failWriting(path_, errno);
        if (file_ == stdout) return;
        if (std::fclose(std::exchange(file_, nullptr)) != 0) failWriting(path_, errno);
    }

private:
    std::string path_;
    std::FILE* file_;
};

void writeFile(const std::string& path, DataView data) {
    OutputFile file(path);
    file.write(data);
    file.finish();
}

/// Whole numbers without a fraction: sizes are whole points.
nlohmann::ordered_json number(double value) {
    if (value == std::floor(value)) return static_cast<std::int64_t>(value);
    return value;
}

std::string description(const PreviewReply& reply) {
    nlohmann::ordered_json json;
    json["width"] = number(reply.contentSize.width);
    json["height"] = number(reply.contentSize.height);
    json["attachments"] = nlohmann::ordered_json::object();
    for (const auto& [name, attachment] : reply.attachments)
        json["attachments"][name] = attachment.contentType.identifier();
    return json.dump() + '\n';
}

std::string dataURL(const PreviewReplyAttachment& attachment) {
    const std::string_view mimeType = attachment.contentType.mimeType();
    std::string url = "data:";
    url += mimeType.empty() ? "application/octet-stream" : mimeType;
    url += ";base64,";
    return url + base64(*attachment.data);
}

/// No script, no style but ours, no frame, no form; pictures only.
constexpr std::string_view contentSecurityPolicy =
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; img-src data: cid: http: "
    "https:; "
    "style-src 'unsafe-inline'\">\n";

/// How our pages begin. The policy goes between the two: behind the character set, before anything that it
/// governs.
constexpr std::string_view pageStart = "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n";
constexpr std::string_view colorSchemes = "<meta name=\"color-scheme\" content=\"light dark\">\n";

/// What a page of ours never holds behind that. Raw HTML of a Markdown document can bring these past a filter
/// of text, and no policy stops a refresh, a base, or what a link or a frame's own document fetches ahead.
constexpr std::array<std::string_view, 4> foreignElements{"meta", "link", "base", "iframe"};

bool beginsWithoutCase(std::string_view text, std::string_view lowercase) {
    if (text.size() < lowercase.size()) return false;
    for (std::size_t i = 0; i < lowercase.size(); ++i) {
        const char c = text[i];
        if ((c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c) != lowercase[i]) return false;
    }
    return true;
}

bool beginsForeignElement(std::string_view name) {
    return std::ranges::any_of(foreignElements,
                               [name](std::string_view element) { return beginsWithoutCase(name, element); });
}

/// Hands on \p html, with the tags of such elements turned into text.
void writeBody(std::string_view html, const std::function<void(DataView)>& write) {
    for (std::size_t tag = 0; (tag = html.find('<', tag)) != html.npos;) {
        if (!beginsForeignElement(html.substr(tag + 1))) {
            ++tag;
            continue;
        }
        write(html.substr(0, tag));
        write("&lt;");
        html.remove_prefix(tag + 1);
        tag = 0;
    }
    write(html);
}

constexpr std::string_view scheme = "cid:";

/// Hands the pieces of the page that stands alone to \p write, in their order; the large ones are never copied.
/// References for whose attachment there is no more \p room stay as they are.
void composePage(PreviewReply& reply, std::size_t room, const std::function<void(DataView)>& write) {
    std::string_view html = reply.data();
    std::map<std::string_view, std::string> urls;
    for (const auto& [name, attachment] : reply.attachments) urls.emplace(name, dataURL(attachment));

    // A worker that has been taken over makes pages of other forms: the policy holds for them as well.
    const auto writeAsItStands = [&](std::string_view beginning) {
        if (!html.starts_with(beginning)) return;
        write(beginning);
        html.remove_prefix(beginning.size());
    };
    writeAsItStands(pageStart);
    write(contentSecurityPolicy);
    writeAsItStands(colorSchemes);

    // A reference is the whole of a quoted value. Raw HTML has quotation marks of both kinds.
    for (std::size_t start = 0; (start = html.find(scheme, start)) != html.npos;) {
        const std::size_t nameAt = start + scheme.size();
        const char quote = start > 0 ? html[start - 1] : ' ';
        start = nameAt;
        if (quote != '"' && quote != '\'') continue;
        const auto url = urls.find(html.substr(nameAt, html.find(quote, nameAt) - nameAt));
        if (url == urls.end() || url->second.size() > room) continue;
        room -= url->second.size();
        writeBody(html.substr(0, nameAt - scheme.size()), write);
        write(url->second);
        html.remove_prefix(nameAt + url->first.size());
        start = 0;
    }
    writeBody(html, write);
}

} // namespace

std::string selfContainedPage(PreviewReply& reply, std::size_t maxBytes) {
    std::string page;
    composePage(reply, maxBytes, [&](DataView piece) { page.append(piece); });
    return page;
}

void writeFolder(PreviewReply& reply, const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) failWriting(folder, error.value());
    const auto writeInside = [&](std::string_view name, DataView data) {
        writeFile(std::string(folder).append("/").append(name), data);
    };
    writeInside("index.html", reply.data());
    for (const auto& [name, attachment] : reply.attachments) writeInside(name, *attachment.data);
    writeInside("preview.json", description(reply));
}

void writePage(PreviewReply& reply, const std::string& path) {
    OutputFile file(path);
    composePage(reply, maxAttachmentBytes, [&](DataView piece) { file.write(piece); });
    file.finish();
}

} // namespace quillmar::PreviewWriter
