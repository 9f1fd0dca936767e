#pragma once

#include <string>
#include <string_view>

namespace quillmar {

/// The place of an item: an absolute path, kept as the bytes the file system knows (any but NUL, UTF-8 or not).
class FileURL {
public:
    /// \p path is joined to \p base when it is relative; then "." and ".." are resolved lexically, repeated
    /// and trailing slashes dropped. \p base is absolute.
    static FileURL standardized(std::string_view path, const FileURL& base);
    /// \p path read from the working folder of this process.
    static FileURL fromCommandLine(std::string_view path);
    static FileURL root();

    /// For the file system, byte for byte.
    const std::string& path() const { return path_; }

    /// The name as people see it: the last component, what is not UTF-8 repaired; "/" for the root.
    std::string lastPathComponent() const;
    /// See `pathExtension` below; not lower-cased.
    std::string pathExtension() const;

    FileURL deletingLastPathComponent() const;
    /// \p name is one component: not empty, without a slash.
    FileURL appendingPathComponent(std::string_view name) const;

    bool operator==(const FileURL&) const = default;

private:
    explicit FileURL(std::string path) : path_(std::move(path)) {}

    std::string path_;
};

/// What follows the last dot of \p name, without the dot. Empty when there is no dot, the dot is the first or
/// the last character, the stem is "." or "..", or the rest holds a space, a slash or a bidirectional control
/// (which could make "exe" look like "txt").
std::string_view pathExtension(std::string_view name);

} // namespace quillmar
