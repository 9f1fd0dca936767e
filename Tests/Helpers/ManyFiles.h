#pragma once

#include "Tests/Helpers/TemporaryFolder.h"

#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmar {

/// \p count files of one byte each ("0", "1", ...) in the folder \p name, which is made when it is not there.
/// They are sparse: the disk keeps nothing but their names and lengths, which is quick.
inline FileURL makeFiles(const TemporaryFolder& folder, const std::string& name, int count) {
    FileURL url = folder.makeFolder(name);
    const int directory = ::open(url.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int i = 0; i < count; ++i) {
        const int file =
            ::openat(directory, std::to_string(i).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (file < 0 || ::ftruncate(file, 1) != 0) throw std::runtime_error("cannot write in " + name);
        ::close(file);
    }
    ::close(directory);
    return url;
}

} // namespace quillmar
