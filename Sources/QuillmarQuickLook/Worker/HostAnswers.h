#pragma once

#include "Markdown/LocalImageFiles.h"
#include "Markdown/MarkdownLimits.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"
#include "Support/IconSource.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillmar {

/// What the host gives a worker that asks: no more than a preview of the item needs.
class HostAnswers {
public:
    /// Both must outlive this object; \p icons may be null.
    HostAnswers(const FileURL& item, IconSource* icons);

    std::optional<ImageFiles::Image> to(const WorkerMessages::Request& request);

private:
    std::optional<ImageFiles::Image> typeIcon(const std::string& identifier);
    std::optional<ImageFiles::Image> fileIcon(const std::string& path);
    std::optional<ImageFiles::Image> image(const WorkerMessages::Request& request);
    bool isInItem(const std::string& path) const;

    /// Rows of a listing, each of a type of its own.
    static constexpr int maxIcons = 4'096;

    const FileURL& item_;
    IconSource* icons_;
    bool mayNameImages_;
    LocalImageFiles images_;
    int iconsLeft_ = maxIcons;
    std::int64_t imageBytesLeft_ = MarkdownLimits::maxAttachedImageBytes;
};

} // namespace quillmar
