#pragma once

#include "Markdown/MarkdownLimits.h"
#include "Markdown/TextIndex.h"
#include "Platform/FileURL.h"
#include "Support/ImageFiles.h"
#include "Support/PreviewAssets.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmar {

/// The local images of one document: found beside it, read once each, attached to its page.
class DocumentImages {
public:
    /// \p folder is the document's. \p files and \p assets must outlive this object.
    DocumentImages(FileURL folder, ImageFiles& files, PreviewAssets& assets)
        : folder_(std::move(folder)), files_(files), assets_(assets) {}

    /// Attaches the image at \p path, which is relative to the folder or absolute, and returns its reference.
    /// None when it is no regular file, cannot be read, or exceeds a limit (`MarkdownLimits`).
    std::optional<std::string> attach(const std::string& path);

private:
    using Image = std::optional<ImageFiles::Image>;

    const Image& image(const FileURL& url);
    std::int64_t bytesLeft() const { return MarkdownLimits::maxAttachedImageBytes - attachedBytes_; }

    FileURL folder_;
    ImageFiles& files_;
    PreviewAssets& assets_;
    TextIndex paths_;
    std::vector<Image> images_; ///< by the number of the path
    std::int64_t attachedBytes_ = 0;
};

} // namespace quillmar
