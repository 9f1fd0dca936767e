#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillmar {

/// A key file as the desktop uses them for themes, folders and applications: groups in brackets and lines of
/// "Key=value" (freedesktop.org, desktop entries). What is neither is passed over; of a key that
/// comes twice the first counts.
class KeyFile {
public:
    explicit KeyFile(std::string text);
    KeyFile(const KeyFile&) = delete;
    KeyFile& operator=(const KeyFile&) = delete;

    /// Without the white space around it; as it stands, escapes included. A view into this object.
    std::optional<std::string_view> value(std::string_view group, std::string_view key) const;

    /// Bytes of a key file that are read: twenty times the largest theme's.
    static constexpr std::size_t maxBytes = 1'048'576;

private:
    std::string text_;
    /// By group and key. Ordered, not hashed: nobody can choose keys that collide.
    std::map<std::pair<std::string_view, std::string_view>, std::string_view> values_;
};

} // namespace quillmar
