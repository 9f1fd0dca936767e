#include "Markdown/DocumentImages.h"

#include "Markdown/MarkdownLimits.h"
#include "Platform/FileError.h"
#include "Platform/FileHandle.h"
#include "Platform/ResourceValues.h"

namespace quillmar {

std::optional<std::string> DocumentImages::attach(const std::string& path) {
    const bool isPath = path.find('\0') == path.npos;
    if (!isPath) return std::nullopt;
    const Image& found = image(FileURL::standardized(path, folder_));
    if (!found.data) return std::nullopt;
    const auto bytes = static_cast<std::int64_t>(found.data->size());
    if (bytes > MarkdownLimits::maxAttachedImageBytes - attachedBytes_) return std::nullopt;
    attachedBytes_ += bytes;
    return assets_.add(found.data, found.typeIdentifier);
}

/// Reads the image when it is first asked for; a failure is remembered as well.
const DocumentImages::Image& DocumentImages::image(const FileURL& url) {
    const std::size_t number = paths_.insert(url.path());
    if (number < images_.size()) return images_[number];
    Image& image = images_.emplace_back();
    const auto values = resourceValues(url);
    if (!values || !values->fileSize || *values->fileSize > MarkdownLimits::maxImageBytes) return image;
    // One file too many for the page is not read at all.
    if (*values->fileSize > MarkdownLimits::maxAttachedImageBytes - attachedBytes_) return image;
    try {
        image.data = std::make_shared<const Data>(readPrefix(url, MarkdownLimits::maxImageBytes));
        image.typeIdentifier = values->contentType ? values->contentType->identifier() : "public.image";
    } catch (const FileError&) {
        image.data = nullptr;
    }
    return image;
}

} // namespace quillmar
