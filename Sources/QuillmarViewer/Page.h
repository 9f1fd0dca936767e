#pragma once

#include <string>

namespace quillmar {

/// A preview as a window shows it.
struct Page {
    std::string html; ///< stands alone: its attachments are data URLs
    double width = 0; ///< points
    double height = 0;
    bool namesRemoteImages = false;
};

} // namespace quillmar
