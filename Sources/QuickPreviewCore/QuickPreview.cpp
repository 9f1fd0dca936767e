#include "QuickPreview.h"

#include "Archives/ArchiveError.h"
#include "Archives/ArchiveReader.h"
#include "Folder/FolderSummarizer.h"
#include "Markdown/DocumentImages.h"
#include "Markdown/LocalImageFiles.h"
#include "Markdown/MarkdownLimits.h"
#include "Markdown/MarkdownParser.h"
#include "Pages/ArchivePage.h"
#include "Pages/FolderPage.h"
#include "Pages/MessagePage.h"
#include "Pages/PageTemplate.h"
#include "Pages/TextPage.h"
#include "Platform/ByteCountFormat.h"
#include "Platform/FileHandle.h"
#include "Platform/ResourceValues.h"
#include "Platform/Text.h"
#include "Support/HTML.h"

#include <algorithm>
#include <array>
#include <new>

namespace quillmar::QuickPreview {
namespace {

struct PageSize {
    double width;
    double height;
};

// Points. The size follows the route: a binary file found by the text route keeps that route's size.
constexpr PageSize listingSize{780, 620};
constexpr PageSize textSize{900, 700};
constexpr PageSize markdownSize{900, 900};
constexpr PageSize errorSize{520, 380};

struct Page {
    std::string html;
    PageSize size;
};

/// Bytes of a text file that are shown. One more is read, to know whether there are more.
constexpr std::size_t maxTextBytes = 524'288;

/// Seconds in which an archive is listed; what was read until then is shown.
constexpr double archiveBudget = 2.0;

/// Seconds in which a folder is measured; what was counted until then is shown.
constexpr double folderBudget = 1.5;

/// Bytes that are searched for a zero, which no text holds.
constexpr std::size_t binaryTestBytes = 8'192;

/// Extensions that mean Markdown whatever the content type says.
constexpr std::array<std::string_view, 8> markdownExtensions{
    "md", "markdown", "mdown", "mkd", "mkdn", "mdwn", "mdtext", "mdx",
};
constexpr std::string_view markdownType = "net.daringfireball.markdown";

bool isMarkdown(const FileURL& url, const std::optional<UniformType>& type) {
    const std::string extension = lowercased(url.pathExtension());
    if (std::ranges::find(markdownExtensions, extension) != markdownExtensions.end()) return true;
    return type && type->conformsTo(markdownType);
}

std::string markdown(const FileURL& url, ImageFiles& imageFiles, PreviewAssets& assets) {
    std::string text = decodedText(readPrefix(url, MarkdownLimits::maxDocumentBytes));
    DocumentImages images(url.deletingLastPathComponent(), imageFiles, assets);
    MarkdownParser parser([&images](const std::string& path) { return images.attach(path); });
    std::string html = PageTemplate::documentStart(url.lastPathComponent(), "markdown", 0);
    html += "<article class=\"markdown-body\">";
    parser.appendDocument(html, std::move(text));
    html += "</article>";
    html += PageTemplate::documentEnd;
    return html;
}

bool isBinary(DataView data) { return data.substr(0, binaryTestBytes).find('\0') != data.npos; }

std::string text(const FileURL& url, const std::optional<UniformType>& type, PreviewAssets& assets) {
    Data data = readPrefix(url, maxTextBytes + 1);
    const std::string name = url.lastPathComponent();
    const auto icon = assets.typeIcon(type ? type->identifier() : "public.plain-text");
    const auto bytesRead = static_cast<std::int64_t>(data.size());
    const auto values = resourceValues(url);
    const std::int64_t size = values ? values->fileSize.value_or(bytesRead) : bytesRead;
    if (isBinary(data)) {
        const std::string message =
            "This is a binary file, " + formattedSize(size) + ", with nothing readable to preview.";
        return MessagePage::html(name, message, icon);
    }

    const bool isWhole = data.size() <= maxTextBytes;
    if (!isWhole) data.resize(maxTextBytes);
    const std::string text = decodedText(std::move(data));

    std::optional<std::string_view> label = TextPage::language(name);
    if (!label && type) label = type->localizedDescription();
    std::vector<std::string> facts{std::string(label.value_or("Text"))};
    if (isWhole) facts.push_back(HTML::count(TextPage::lineCount(text), "line"));
    facts.push_back(formattedSize(size));

    std::optional<std::string> note;
    if (!isWhole) note = "Showing the first " + formattedSize(maxTextBytes) + " of this file.";
    return TextPage::html(text, name, icon, facts, TextPage::wraps(name), note);
}

/// A single compressed file: a sample of what is in it.
std::string compressedFile(CompressedFile file, const FileURL& url, std::int64_t archiveSize,
                           PreviewAssets& assets) {
    const std::string name = url.lastPathComponent();
    const auto sampleSize = static_cast<std::int64_t>(file.sample.size());
    const auto icon = assets.fileIcon(url, "public.archive");
    if (isBinary(file.sample)) {
        std::string message = "Contains “" + file.originalName + "”";
        if (file.originalSize) message += ", " + formattedSize(*file.originalSize);
        return MessagePage::html(name, message + ". Double-click to decompress it.", icon);
    }

    std::vector<std::string> facts{std::string(displayName(file.format)), formattedSize(archiveSize)};
    // The recorded size is modulo 2^32: one smaller than what came out is not believed.
    if (file.originalSize && *file.originalSize >= sampleSize)
        facts.push_back(formattedSize(*file.originalSize) + " uncompressed");
    const std::string note =
        file.sampleIsComplete ? "Contents of “" + file.originalName + "”."
                              : "The first " + formattedSize(sampleSize) + " of “" + file.originalName + "”.";
    return TextPage::html(decodedText(std::move(file.sample)), name, icon, facts,
                          TextPage::wraps(file.originalName), note);
}

/// None when the item is no archive. Throws what the reader throws otherwise.
std::optional<ArchiveContent> archiveContent(const FileURL& url) {
    try {
        return ArchiveReader::read(url, archiveBudget);
    } catch (const ArchiveError& error) {
        if (error.isDamaged()) throw;
        return std::nullopt;
    }
}

/// The router. Throws what the item's reader throws.
Page page(const FileURL& url, ImageFiles& images, PreviewAssets& assets) {
    const auto values = resourceValues(url);
    const auto type = values ? values->contentType : std::nullopt;
    if (values && values->isDirectory && !values->isPackage)
        return {FolderPage::html(FolderSummarizer::summarize(url, folderBudget), assets), listingSize};
    if (isMarkdown(url, type)) return {markdown(url, images, assets), markdownSize};
    const std::int64_t archiveSize = values ? values->fileSize.value_or(0) : 0;
    auto content = archiveContent(url);
    if (!content) return {text(url, type, assets), textSize};
    if (const auto* listing = std::get_if<ArchiveListing>(&*content))
        return {ArchivePage::html(*listing, url, archiveSize, assets), listingSize};
    return {compressedFile(std::get<CompressedFile>(std::move(*content)), url, archiveSize, assets), textSize};
}

Page errorPage(const FileURL& url, const std::string& message, std::string_view fallbackType,
               PreviewAssets& assets) {
    return {MessagePage::html(url.lastPathComponent(), message, assets.fileIcon(url, fallbackType)), errorSize};
}

constexpr const char* unreadable = "Quillmar couldn't read this item. ";

Page pageOrError(const FileURL& url, ImageFiles& images, PreviewAssets& assets) {
    try {
        return page(url, images, assets);
    } catch (const ArchiveError& error) {
        return errorPage(url, std::string("This archive can't be read. ") + error.what(), "public.archive",
                         assets);
    } catch (const std::bad_alloc&) {
        return errorPage(url, std::string(unreadable) + "There is not enough memory to preview it.",
                         "public.data", assets);
    } catch (const std::exception& error) {
        return errorPage(url, std::string(unreadable) + error.what(), "public.data", assets);
    }
}

PreviewDocument finished(Page page, PreviewAssets& assets) {
    return {std::move(page.html), std::move(assets).takeAttachments(), page.size.width, page.size.height};
}

} // namespace

PreviewDocument document(const FileURL& url, IconSource* icons, ImageFiles* images) {
    PreviewAssets assets(icons);
    LocalImageFiles localImages;
    return finished(pageOrError(url, images != nullptr ? *images : localImages, assets), assets);
}

bool mayNameImages(const FileURL& url) {
    const auto values = resourceValues(url);
    return isMarkdown(url, values ? values->contentType : std::nullopt);
}

PreviewDocument failure(const FileURL& url, std::string_view message, IconSource* icons) {
    PreviewAssets assets(icons);
    const std::string sentence = std::string(unreadable).append(message);
    return finished(errorPage(url, sentence, "public.data", assets), assets);
}

} // namespace quillmar::QuickPreview
