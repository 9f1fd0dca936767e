#include "Markdown/DocumentImages.h"

#include <algorithm>

namespace quillmar {

std::optional<std::string> DocumentImages::attach(const std::string& path) {
    const bool isPath = path.find('\0') == path.npos;
    if (!isPath) return std::nullopt;
    const Image& found = image(FileURL::standardized(path, folder_));
    if (!found) return std::nullopt;
    const auto bytes = static_cast<std::int64_t>(found->data->size());
    if (bytes > bytesLeft()) return std::nullopt;
    attachedBytes_ += bytes;
    return assets_.add(found->data, found->typeIdentifier);
}

/// Reads the image when it is first asked for; a failure is remembered as well.
const DocumentImages::Image& DocumentImages::image(const FileURL& url) {
    const std::size_t number = paths_.insert(url.path());
    if (number == images_.size()) // one file too many for the page is not read at all
        images_.push_back(files_.image(url, std::min(MarkdownLimits::maxImageBytes, bytesLeft())));
    return images_[number];
}

} // namespace quillmar
