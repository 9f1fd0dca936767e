#pragma once

#include "Platform/Data.h"
#include "Platform/FileURL.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quillmar {

/// Where the images come from that a document names: the file system, or a host that reads it for those who may
/// not.
class ImageFiles {
public:
    struct Image {
        std::shared_ptr<const Data> data; ///< never null
        std::string typeIdentifier;       ///< a uniform type identifier
    };

    virtual ~ImageFiles() = default;
    /// The content of the regular file at \p url; none when it is no such file, has more than \p maxBytes
    /// bytes, or cannot be read.
    virtual std::optional<Image> image(const FileURL& url, std::int64_t maxBytes) = 0;
};

} // namespace quillmar
