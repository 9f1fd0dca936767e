#include "Platform/FileURL.h"

#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace quillmar {
namespace {

/// Appends the components of \p path to \p absolute, a path without trailing slash (empty for the root).
void appendComponents(std::string& absolute, std::string_view path) {
    std::size_t start = 0;
    while (start < path.size()) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string_view component = path.substr(start, end - start);
        start = end + 1;
        if (component.empty() || component == ".") continue;
        if (component == "..") {
            absolute.resize(absolute.empty() ? 0 : absolute.rfind('/'));
        } else {
            absolute += '/';
            absolute += component;
        }
    }
}

/// The working folder; the root when it has been removed, which no relative path survives anyway.
std::string workingFolder() {
    std::string folder(256, '\0');
    while (::getcwd(folder.data(), folder.size()) == nullptr) {
        if (errno != ERANGE) return "/";
        folder.resize(folder.size() * 2);
    }
    folder.resize(folder.find('\0'));
    return folder;
}

bool isBidirectionalControl(char32_t c) {
    return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

bool holdsBidirectionalControl(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const auto character = UTF8::codePointAt(text, i);
        if (isBidirectionalControl(character.value)) return true;
        i += character.length;
    }
    return false;
}

} // namespace

FileURL FileURL::standardized(std::string_view path, const FileURL& base) {
    std::string absolute;
    if (!path.starts_with('/')) appendComponents(absolute, base.path_);
    appendComponents(absolute, path);
    if (absolute.empty()) absolute += '/';
    return FileURL(std::move(absolute));
}

FileURL FileURL::fromCommandLine(std::string_view path) {
    if (path.starts_with('/')) return standardized(path, root());
    return standardized(path, standardized(workingFolder(), root()));
}

FileURL FileURL::root() { return FileURL("/"); }

std::string FileURL::lastPathComponent() const {
    if (path_ == "/") return path_;
    return repairedText(path_.substr(path_.rfind('/') + 1));
}

std::string FileURL::pathExtension() const { return std::string(quillmar::pathExtension(lastPathComponent())); }

FileURL FileURL::deletingLastPathComponent() const {
    const std::size_t slash = path_.rfind('/');
    return FileURL(slash == 0 ? "/" : path_.substr(0, slash));
}

FileURL FileURL::appendingPathComponent(std::string_view name) const {
    std::string path = path_ == "/" ? "" : path_;
    path += '/';
    path += name;
    return FileURL(std::move(path));
}

std::string_view pathExtension(std::string_view name) {
    while (name.ends_with('/')) name.remove_suffix(1);
    const std::size_t dot = name.rfind('.');
    if (dot == name.npos || dot == 0 || dot + 1 == name.size()) return {};
    const std::string_view stem = name.substr(0, dot);
    const std::string_view extension = name.substr(dot + 1);
    if (stem == "." || stem == "..") return {};
    if (extension.find_first_of(" /") != extension.npos || holdsBidirectionalControl(extension)) return {};
    return extension;
}

} // namespace quillmar
