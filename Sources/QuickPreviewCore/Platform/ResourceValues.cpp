#include "Platform/ResourceValues.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <sys/stat.h>

namespace quillmar {
namespace {

/// Where a symbolic link ends, so that the target's name decides the type; any other item stands for itself.
FileURL resolved(const FileURL& url) {
    struct stat status {};
    if (::lstat(url.path().c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return url;
    const std::unique_ptr<char, decltype(&std::free)> target(::realpath(url.path().c_str(), nullptr),
                                                             &std::free);
    return target ? FileURL::standardized(target.get(), FileURL::root()) : url;
}

ResourceValues directoryValues(const FileURL& url) {
    if (const auto package = UniformType::ofPackage(url.pathExtension()))
        return {.isDirectory = true, .isPackage = true, .contentType = package, .fileSize = std::nullopt};
    return {.isDirectory = true,
            .isPackage = false,
            .contentType = UniformType::withIdentifier("public.folder"),
            .fileSize = std::nullopt};
}

} // namespace

std::optional<ResourceValues> resourceValues(const FileURL& url) {
    struct stat status {};
    if (::stat(url.path().c_str(), &status) != 0) return std::nullopt;
    if (S_ISDIR(status.st_mode)) return directoryValues(resolved(url));
    ResourceValues values;
    if (S_ISREG(status.st_mode)) {
        values.contentType = UniformType::ofFile(resolved(url).pathExtension());
        values.fileSize = status.st_size;
    }
    return values;
}

bool itemExists(const FileURL& url) {
    struct stat status {};
    return ::lstat(url.path().c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

} // namespace quillmar
