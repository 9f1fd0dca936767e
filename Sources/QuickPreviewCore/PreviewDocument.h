#pragma once

#include "Support/PreviewAssets.h"

#include <map>
#include <string>

namespace quillmar {

/// A finished preview.
struct PreviewDocument {
    std::string html; ///< one document; attachments are referenced as "cid:" and their name
    std::map<std::string, PreviewAssets::Attachment> attachments;
    double width = 0;  ///< preferred width of the panel, points
    double height = 0; ///< preferred height of the panel, points
};

} // namespace quillmar
