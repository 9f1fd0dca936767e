#include "Folder/FolderSummarizer.h"

#include "Folder/DisplayOrder.h"
#include "Folder/FolderWalk.h"
#include "Folder/NameList.h"
#include "Platform/Directory.h"
#include "Platform/DirectoryReader.h"
#include "Platform/FileError.h"
#include "Platform/ParallelLoop.h"
#include "Platform/Text.h"
#include "Support/SaturatingSum.h"
#include "Support/TypesByExtension.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <utility>

namespace quillmar::FolderSummarizer {
namespace {

/// Children that a thread looks at in one go. Fewer are not worth another thread.
constexpr std::size_t childrenPerGrain = 256;

/// Entries that one thread reads before others are started: most folders hold no more.
constexpr std::size_t entriesForOne = 512;

/// Throws FileError.
NameList namesIn(const Directory& folder, const FileURL& url) {
    NameList names;
    DirectoryReader reader;
    reader.start(folder);
    while (const auto entry = reader.next()) names.add(entry->name);
    if (reader.error() != 0) throw FileError::system(url, reader.error());
    if (names.size() > 0 && !folder.isSearchable()) throw FileError::system(url, EACCES);
    return names;
}

/// A folder is a package or a plain one.
void describeFolder(FolderItem& item, std::string_view name) {
    auto type = UniformType::ofPackage(pathExtension(name));
    item.isFolder = !type;
    if (!type) type = UniformType::withIdentifier("public.folder");
    item.kind = fileKind(type, item.isFolder);
    if (type) item.typeIdentifier = type->identifier();
}

void describeFile(FolderItem& item, std::string_view name, const ItemStatus& status, TypesByExtension& types) {
    item.size = status.size;
    item.isSizeComplete = true;
    TypesByExtension::FileType file;
    if (status.kind == ItemKind::regularFile) file = types.ofName(name);
    if (status.kind == ItemKind::symbolicLink) {
        file.type = UniformType::withIdentifier("public.symlink");
        file.kind = fileKind(file.type, false);
    }
    item.kind = file.kind;
    if (file.type) item.typeIdentifier = file.type->identifier();
}

/// Fills \p item with the child \p name of \p folder, a folder without its size. Leaves it as it is when the
/// child cannot be asked.
void describe(FolderItem& item, const Directory& folder, const FileURL& url, const char* name,
              TypesByExtension& types) {
    const auto status = folder.status(name);
    if (!status) return;
    item.url = url.appendingPathComponent(name);
    item.name = repairedText(name);
    item.isHidden = name[0] == '.';
    item.modified = status->modified;
    if (status->kind == ItemKind::folder) {
        describeFolder(item, name);
    } else {
        describeFile(item, name, *status, types);
    }
}

/// A slot for each child: nobody waits for another.
using Slots = std::vector<FolderItem>;

bool isEmpty(const FolderItem& slot) { return slot.name.empty(); }

/// One slot for each of \p names; empty where the child cannot be asked.
Slots itemsNamed(const NameList& names, const Directory& folder, const FileURL& url) {
    Slots slots(names.size(), FolderItem{.url = FileURL::root()});
    const auto fill = [&](std::size_t grain) {
        const std::size_t begin = grain * childrenPerGrain;
        const std::size_t end = std::min(begin + childrenPerGrain, names.size());
        TypesByExtension types;
        for (std::size_t i = begin; i < end; ++i) describe(slots[i], folder, url, names[i], types);
    };
    const std::size_t grains = (names.size() + childrenPerGrain - 1) / childrenPerGrain;
    if (grains == 1) {
        fill(0);
    } else {
        concurrentPerform(grains, fill);
    }
    return slots;
}

/// Gives the folders among the items their sizes.
void measure(Slots& slots, const NameList& names, const std::shared_ptr<const Directory>& folder,
             const Deadline& deadline) {
    const auto isMeasured = [](const FolderItem& item) { return !isEmpty(item) && !item.size; };
    std::vector<DirectorySize> sizes(static_cast<std::size_t>(std::ranges::count_if(slots, isMeasured)));
    FolderWalk walk(deadline);
    auto size = sizes.begin();
    for (std::size_t i = 0; i < slots.size(); ++i)
        if (isMeasured(slots[i])) walk.add(folder, names[i], *size++);
    walk.run(entriesForOne);
    if (!walk.isDone()) concurrentPerform(concurrentThreads(), [&walk](std::size_t) { walk.run(); });
    size = sizes.begin();
    for (FolderItem& item : slots) {
        if (!isMeasured(item)) continue;
        item.size = size->size;
        item.isSizeComplete = size->isComplete;
        ++size;
    }
}

/// The children of \p folder in no order.
std::vector<FolderItem> measuredItems(const std::shared_ptr<const Directory>& folder, const FileURL& url,
                                      const Deadline& deadline) {
    const NameList names = namesIn(*folder, url);
    Slots slots = itemsNamed(names, *folder, url);
    measure(slots, names, folder, deadline);
    std::erase_if(slots, isEmpty);
    return slots;
}

} // namespace

FolderSummary summarize(const FileURL& url, double budget, const Clock& clock) {
    const Deadline deadline(budget, clock);
    const auto folder = std::make_shared<const Directory>(url);
    FolderSummary summary{.url = url};
    summary.items = measuredItems(folder, url, deadline);
    sortForDisplay(summary.items);
    for (const FolderItem& item : summary.items) {
        summary.totalSize = saturatingSum(summary.totalSize, item.size.value_or(0));
        summary.isComplete = summary.isComplete && item.isSizeComplete;
    }
    summary.modified = folder->modified();
    return summary;
}

DirectorySize directorySize(const FileURL& url, const Deadline& deadline) {
    if (deadline.reached()) return {};
    DirectorySize size;
    FolderWalk walk(deadline);
    try {
        walk.add(std::make_shared<const Directory>(url), ".", size);
    } catch (const FileError&) {
        return {};
    }
    walk.run();
    return size;
}

} // namespace quillmar::FolderSummarizer
