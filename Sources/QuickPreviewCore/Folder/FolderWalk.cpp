#include "Folder/FolderWalk.h"

#include "Support/SaturatingSum.h"

#include <cerrno>
#include <iterator>
#include <utility>

namespace quillmar {
namespace {

/// True when the folder could be read, had the system more to give.
bool isShortage(int error) { return error == EMFILE || error == ENFILE || error == ENOMEM; }

} // namespace

void FolderWalk::add(std::shared_ptr<const Directory> parent, std::string name, DirectorySize& result) {
    pending_.push_back(
        {.parent = std::move(parent), .name = std::move(name), .result = &result, .isAdded = true});
}

void FolderWalk::run(std::size_t enough) {
    DirectoryReader reader;
    std::size_t seen = 0;
    while (seen < enough) {
        auto folder = take();
        if (!folder) return;
        DirectorySize& result = *folder->result;
        std::optional<Contents> contents;
        try {
            contents = read(std::move(*folder), reader, seen);
        } catch (...) {
            finish(result, std::nullopt); // nobody shall wait for it
            throw;
        }
        finish(result, std::move(contents));
    }
}

/// Waits for others that may find folders. None when nobody can any more.
std::optional<FolderWalk::Folder> FolderWalk::take() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !pending_.empty() || active_ == 0; });
    if (pending_.empty()) return std::nullopt;
    std::optional<Folder> folder(std::move(pending_.back()));
    pending_.pop_back();
    ++active_;
    return folder;
}

/// None for a folder that was added and cannot be looked into, or not in time.
std::optional<FolderWalk::Contents> FolderWalk::read(Folder folder, DirectoryReader& reader,
                                                     std::size_t& seen) const {
    if (folder.isAdded && deadline_.reached()) return std::nullopt;
    const auto directory = std::make_shared<const Directory>(*folder.parent, folder.name.c_str());
    folder.parent.reset(); // the last folder in it closes it
    Contents contents;
    if (!directory->isOpen()) {
        if (folder.isAdded) return std::nullopt;
        contents.isComplete = !isShortage(directory->error());
        return contents;
    }
    if (folder.isAdded && !directory->isSearchable()) return std::nullopt; // nothing in it tells its size
    if (directory->isOnPseudoFileSystem()) return contents;

    reader.start(*directory);
    while (const auto entry = reader.next()) {
        ++seen;
        if (seen % entriesPerLook == 0 && deadline_.passed()) {
            contents.isStopped = true;
            break;
        }
        ItemKind kind = entry->kind;
        if (kind == ItemKind::regularFile || kind == ItemKind::unknown) {
            const auto status = directory->status(entry->name);
            kind = status ? status->kind : ItemKind::other;
            if (kind == ItemKind::regularFile) contents.size = saturatingSum(contents.size, status->size);
        }
        if (kind == ItemKind::folder)
            contents.folders.push_back(
                {.parent = directory, .name = entry->name, .result = folder.result, .isAdded = false});
    }
    return contents;
}

/// Adds what a folder of \p result holds, and leaves the folders in it to whoever comes next.
void FolderWalk::finish(DirectorySize& result, std::optional<Contents> contents) {
    const std::lock_guard lock(mutex_);
    --active_;
    changed_.notify_all();
    if (!contents) return;
    if (!result.size) result = {.size = 0, .isComplete = true};
    result.size = saturatingSum(*result.size, contents->size);
    if (!contents->isComplete || contents->isStopped) result.isComplete = false;
    pending_.insert(pending_.end(), std::make_move_iterator(contents->folders.begin()),
                    std::make_move_iterator(contents->folders.end()));
    if (contents->isStopped) isStopped_ = true;
    if (isStopped_) abandon();
}

/// The deadline has passed: what is not yet begun stays without a size, the rest is incomplete.
void FolderWalk::abandon() {
    for (const Folder& folder : pending_)
        if (!folder.isAdded) folder.result->isComplete = false;
    pending_.clear();
}

} // namespace quillmar
