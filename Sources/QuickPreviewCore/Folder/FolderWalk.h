#pragma once

#include "Folder/DirectorySize.h"
#include "Platform/Directory.h"
#include "Platform/DirectoryReader.h"
#include "Support/Deadline.h"

#include <condition_variable>
#include <cstddef>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace quillmar {

/// Measures folders with everything in them. Threads that take part share one stack of folders still to be
/// read, so that a single large one keeps them all busy. Depth costs memory, not stack.
class FolderWalk {
public:
    /// \p deadline must outlive this object.
    explicit FolderWalk(const Deadline& deadline) : deadline_(deadline) {}

    /// Adds the folder \p name in \p parent; before any thread takes part. \p result must outlive this object.
    void add(std::shared_ptr<const Directory> parent, std::string name, DirectorySize& result);

    /// Takes part until nothing is left to do, or until this thread has seen \p enough entries.
    void run(std::size_t enough = std::numeric_limits<std::size_t>::max());

    /// Not to be asked while threads take part.
    bool isDone() const { return pending_.empty(); }

    /// Entries that a thread sees between two looks at the clock.
    static constexpr std::size_t entriesPerLook = 256;

private:
    /// To be read. Holds its parent open.
    struct Folder {
        std::shared_ptr<const Directory> parent;
        std::string name;
        DirectorySize* result;
        bool isAdded; ///< rather than found in another
    };

    /// What reading one folder has given, without that of the folders in it.
    struct Contents {
        std::int64_t size = 0;
        std::vector<Folder> folders;
        bool isComplete = true;
        bool isStopped = false; ///< the deadline has passed
    };

    std::optional<Folder> take();
    std::optional<Contents> read(Folder folder, DirectoryReader& reader, std::size_t& seen) const;
    void finish(DirectorySize& result, std::optional<Contents> contents);
    void abandon();

    const Deadline& deadline_;
    std::mutex mutex_; ///< of all below, and of the results
    std::condition_variable changed_;
    std::vector<Folder> pending_;
    std::size_t active_ = 0; ///< folders that are being read
    bool isStopped_ = false;
};

} // namespace quillmar
