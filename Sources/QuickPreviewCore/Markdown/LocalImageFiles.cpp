#include "Markdown/LocalImageFiles.h"

#include "Platform/FileError.h"
#include "Platform/FileHandle.h"
#include "Platform/ResourceValues.h"

namespace quillmar {

std::optional<ImageFiles::Image> LocalImageFiles::image(const FileURL& url, std::int64_t maxBytes) {
    const auto values = resourceValues(url);
    if (!values || !values->fileSize || *values->fileSize > maxBytes) return std::nullopt;
    // No more than the system says: what it makes up while one reads is no image.
    const auto bytes = static_cast<std::size_t>(*values->fileSize);
    try {
        return Image{.data = std::make_shared<const Data>(readPrefix(url, bytes)),
                     .typeIdentifier =
                         std::string(values->contentType ? values->contentType->identifier() : "public.image")};
    } catch (const FileError&) {
        return std::nullopt;
    }
}

} // namespace quillmar
