#pragma once

#include "Support/ImageFiles.h"

namespace quillmar {

/// Images from the file system.
class LocalImageFiles : public ImageFiles {
public:
    std::optional<Image> image(const FileURL& url, std::int64_t maxBytes) override;
};

} // namespace quillmar
