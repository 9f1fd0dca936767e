#pragma once

#include "Platform/Data.h"
#include "Platform/FileURL.h"

#include <optional>
#include <string_view>

namespace quillmar {

/// Where icons come from: the host's desktop. Both functions answer PNG bytes or nothing.
class IconSource {
public:
    virtual ~IconSource() = default;
    /// The generic icon of a uniform type identifier.
    virtual std::optional<Data> iconForType(std::string_view identifier) = 0;
    /// The icon of one item, a custom or application icon included.
    virtual std::optional<Data> iconForFile(const FileURL& url) = 0;
};

} // namespace quillmar
