#pragma once

#include "Markdown/TextIndex.h"
#include "Platform/Data.h"
#include "Platform/FileURL.h"
#include "Support/PreviewAssets.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillmar {

/// The local images of one document: found beside it, read once each, attached to its page.
class DocumentImages {
public:
    /// \p folder is the document's. \p assets must outlive this object.
    DocumentImages(FileURL folder, PreviewAssets& assets) : folder_(std::move(folder)), assets_(assets) {}

    /// Attaches the image at \p path, which is relative to the folder or absolute, and returns its reference.
    /// None when it is no regular file, cannot be read, or exceeds a limit (`MarkdownLimits`).
    std::optional<std::string> attach(const std::string& path);

private:
    struct Image {
        std::shared_ptr<const Data> data; ///< null when there is no such image
        std::string typeIdentifier;
    };

    const Image& image(const FileURL& url);

    FileURL folder_;
    PreviewAssets& assets_;
    TextIndex paths_;
    std::vector<Image> images_; ///< by the number of the path
    std::int64_t attachedBytes_ = 0;
};

} // namespace quillmar
