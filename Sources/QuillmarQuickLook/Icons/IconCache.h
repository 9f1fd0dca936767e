#pragma once

#include "Platform/Data.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// Rendered icons, kept between previews: one small file each. Whatever is wrong with the folder or with what
/// somebody has put there, the worst that comes of it is an icon that is rendered again.
class IconCache {
public:
    /// \p folder need not exist; an empty path makes a cache that keeps nothing.
    explicit IconCache(std::string folder) : folder_(std::move(folder)) {}

    /// Below XDG_CACHE_HOME or HOME of the environment; empty when neither is an absolute path.
    static std::string standardFolder();

    /// What was stored under \p key.
    std::optional<Data> find(std::string_view key) const;

    /// Several programs may store at once: readers see a whole icon or none.
    void store(std::string_view key, DataView icon) const;

    /// Icons that are kept. From there on the oldest half goes.
    static constexpr std::size_t maxIcons = 1'024;
    /// Bytes of one file, its key included.
    static constexpr std::size_t maxFileBytes = 262'144;

private:
    std::string pathFor(std::string_view key) const;
    void dropOldest() const;

    std::string folder_;
};

} // namespace quillmar
