#include "Platform/FileError.h"

#include <cerrno>
#include <string>
#include <sys/stat.h>
#include <system_error>

namespace quillmar {
namespace {

std::string quotedName(const FileURL& url) { return "“" + url.lastPathComponent() + "”"; }

std::string systemSentence(const FileURL& url, int code) {
    const std::string name = quotedName(url);
    switch (code) {
    case ENOENT: return "There is no file named " + name + ".";
    case EACCES:
    case EPERM: return "You don't have permission to view " + name + ".";
    default: return name + " could not be read: " + std::generic_category().message(code) + ".";
    }
}

std::string notRegularSentence(const FileURL& url, unsigned mode) {
    const std::string name = quotedName(url);
    switch (mode & S_IFMT) {
    case S_IFDIR: return name + " is a package and can't be shown as one file.";
    case S_IFIFO: return name + " is a named pipe and has no content to preview.";
    case S_IFSOCK: return name + " is a socket and has no content to preview.";
    default: return name + " is a device and has no content to preview.";
    }
}

} // namespace

FileError FileError::system(const FileURL& url, int code) { return FileError(systemSentence(url, code)); }

FileError FileError::notRegular(const FileURL& url, unsigned mode) {
    return FileError(notRegularSentence(url, mode));
}

} // namespace quillmar
