#include "Archives/ArchiveEntry.h"

#include <algorithm>

namespace quillmar {

std::string ArchiveEntry::normalize(std::string_view path) {
    std::string result;
    result.reserve(path.size());
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string_view component = path.substr(start, end - start);
        start = std::min(path.find_first_not_of('/', end), path.size());
        if (component.empty() || component == ".") continue;
        if (!result.empty()) result += '/';
        result += component;
    }
    return result;
}

} // namespace quillmar
