#pragma once

#include "Folder/FolderSummarizer.h"
#include "Tests/Helpers/ManyFiles.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace quillmar {

constexpr double ample = 1e6; ///< seconds

using Names = std::vector<std::string>;

inline Names namesOf(const FolderSummary& summary) {
    Names names;
    for (const FolderItem& item : summary.items) names.push_back(item.name);
    return names;
}

/// The item shown as \p name, which is there.
inline const FolderItem& itemOf(const FolderSummary& summary, const std::string& name) {
    const auto found = std::ranges::find(summary.items, name, &FolderItem::name);
    if (found == summary.items.end()) throw std::out_of_range("no item " + name);
    return *found;
}

/// A folder that is filled and summed up.
class SummaryTest : public testing::Test {
protected:
    FolderSummary summarize(double budget = ample, const Clock& clock = systemClock) const {
        return FolderSummarizer::summarize(folder.url("."), budget, clock);
    }

    /// Of the item itself when it is a link. Half a second is added, which nobody shows.
    void setModified(const std::string& name, ::time_t seconds) const {
        const ::timespec time{.tv_sec = seconds, .tv_nsec = 500'000'000};
        const ::timespec times[2]{time, time};
        const std::string path = folder.url(name).path();
        if (::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW) != 0)
            throw std::runtime_error("cannot date " + name);
    }

    TemporaryFolder folder;
};

} // namespace quillmar
