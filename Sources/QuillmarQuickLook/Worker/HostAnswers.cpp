#include "QuillmarQuickLook/Worker/HostAnswers.h"

#include "QuickPreview.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace quillmar {
namespace {

using WorkerMessages::Request;

std::optional<ImageFiles::Image> answer(std::optional<Data> icon) {
    if (!icon) return std::nullopt;
    return ImageFiles::Image{.data = std::make_shared<const Data>(*std::move(icon)),
                             .typeIdentifier = "public.png"};
}

} // namespace

HostAnswers::HostAnswers(const FileURL& item, IconSource* icons)
    : item_(item), icons_(icons), mayNameImages_(QuickPreview::mayNameImages(item)) {}

std::optional<ImageFiles::Image> HostAnswers::to(const Request& request) {
    switch (request.kind) {
    case Request::Kind::typeIcon: return typeIcon(request.text);
    case Request::Kind::fileIcon: return fileIcon(request.text);
    case Request::Kind::image: return image(request);
    case Request::Kind::document: break;
    }
    return std::nullopt;
}

std::optional<ImageFiles::Image> HostAnswers::typeIcon(const std::string& identifier) {
    if (icons_ == nullptr || --iconsLeft_ < 0) return std::nullopt;
    return answer(icons_->iconForType(identifier));
}

/// Of the item, or of what is in it.
std::optional<ImageFiles::Image> HostAnswers::fileIcon(const std::string& path) {
    if (icons_ == nullptr || --iconsLeft_ < 0 || path.find('\0') != std::string::npos) return std::nullopt;
    const FileURL url = FileURL::standardized(path, FileURL::root());
    return isInItem(url.path()) ? answer(icons_->iconForFile(url)) : std::nullopt;
}

bool HostAnswers::isInItem(const std::string& path) const {
    const std::string inside = item_.path() == "/" ? "/" : item_.path() + '/';
    return path == item_.path() || path.starts_with(inside);
}

/// The files that a document names lie anywhere; what bounds a worker is how many bytes it gets.
std::optional<ImageFiles::Image> HostAnswers::image(const Request& request) {
    if (!mayNameImages_ || request.text.find('\0') != std::string::npos) return std::nullopt;
    const std::int64_t wanted = std::min({request.maxBytes, MarkdownLimits::maxImageBytes, imageBytesLeft_});
    if (wanted < 0) return std::nullopt;
    auto found = images_.image(FileURL::standardized(request.text, FileURL::root()), wanted);
    if (found) imageBytesLeft_ -= static_cast<std::int64_t>(found->data->size());
    return found;
}

} // namespace quillmar
