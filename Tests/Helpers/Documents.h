#pragma once

#include "PreviewDocument.h"

#include <algorithm>

namespace quillmar {

/// The same page, the same panel, and attachments of the same bytes.
inline bool areSame(const PreviewDocument& left, const PreviewDocument& right) {
    const auto isSame = [](const auto& one, const auto& other) {
        return one.first == other.first && *one.second.data == *other.second.data &&
               one.second.typeIdentifier == other.second.typeIdentifier;
    };
    return left.html == right.html && left.width == right.width && left.height == right.height &&
           std::equal(left.attachments.begin(), left.attachments.end(), right.attachments.begin(),
                      right.attachments.end(), isSame);
}

} // namespace quillmar
