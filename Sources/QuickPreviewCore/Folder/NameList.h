#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillmar {

/// The names of many items, one behind the other: a folder may have a million.
class NameList {
public:
    void add(const char* name) {
        starts_.push_back(bytes_.size());
        bytes_.append(name).push_back('\0');
    }
    std::size_t size() const { return starts_.size(); }
    const char* operator[](std::size_t index) const { return bytes_.c_str() + starts_[index]; }

private:
    std::string bytes_; ///< a NUL behind every name
    std::vector<std::size_t> starts_;
};

} // namespace quillmar
