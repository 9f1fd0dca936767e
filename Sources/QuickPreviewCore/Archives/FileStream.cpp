#include "Archives/FileStream.h"

#include <algorithm>
#include <limits>

namespace quillmar {

DataView FileStream::read(std::size_t count) {
    data_.resize(count);
    data_.resize(file_.read(std::span(data_), position_));
    position_ += static_cast<std::int64_t>(data_.size());
    return data_;
}

bool FileStream::skip(std::int64_t count, const Deadline& /*deadline*/) {
    if (count < 0 || count > std::numeric_limits<std::int64_t>::max() - position_) return false;
    const std::int64_t target = position_ + count;
    position_ = std::min(end_, target);
    return end_ >= target;
}

} // namespace quillmar
