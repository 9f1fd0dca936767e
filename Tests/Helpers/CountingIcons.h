#pragma once

#include "Support/IconSource.h"

#include <string>
#include <vector>

namespace quillmar {

/// Icons whose bytes say what was asked for, and a record of the questions.
class CountingIcons : public IconSource {
public:
    std::optional<Data> iconForType(std::string_view identifier) override {
        askedTypes.emplace_back(identifier);
        if (identifier == typeWithoutIcon) return std::nullopt;
        return "icon of " + std::string(identifier);
    }
    std::optional<Data> iconForFile(const FileURL& url) override {
        askedFiles.push_back(url.path());
        if (!hasFileIcons) return std::nullopt;
        return "icon of " + url.path();
    }

    std::vector<std::string> askedTypes;
    std::vector<std::string> askedFiles;
    std::string typeWithoutIcon;
    bool hasFileIcons = true;
};

} // namespace quillmar
