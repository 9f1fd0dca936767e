#include "QuillmarQuickLook/Icons/RealPath.h"

#include <cstdlib>
#include <memory>

namespace quillmar {

std::string realPath(const std::string& path) {
    // The C library takes the memory.
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    return real ? std::string(real.get()) : std::string();
}

} // namespace quillmar
