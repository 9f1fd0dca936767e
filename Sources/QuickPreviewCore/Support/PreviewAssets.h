#pragma once

#include "Platform/Data.h"
#include "Platform/FileURL.h"
#include "Support/IconSource.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillmar {

/// The attachments of one preview, and the icons it has looked up. Lives as long as the request; one thread.
class PreviewAssets {
public:
    struct Attachment {
        std::shared_ptr<const Data> data; ///< never null; shared by attachments of the same file
        std::string typeIdentifier;       ///< a uniform type identifier
    };

    /// \p icons may be null: then there are no icons. It must outlive this object.
    explicit PreviewAssets(IconSource* icons) : icons_(icons) {}

    /// By name ("asset-0", "asset-1", ...).
    const std::map<std::string, Attachment>& attachments() const { return attachments_; }
    std::map<std::string, Attachment> takeAttachments() && { return std::move(attachments_); }

    /// The reference ("cid:asset-0") of this item's own icon, or of its \p fallbackType's; none when neither
    /// has one. Only the first `fileIconBudget` calls ask for the item's own.
    std::optional<std::string> fileIcon(const FileURL& url, std::string_view fallbackType);

    /// The reference of the generic icon of the type \p identifier.
    std::optional<std::string> typeIcon(std::string_view identifier);

    /// Stores an attachment and returns its reference.
    std::string add(Data data, std::string_view typeIdentifier);
    std::string add(std::shared_ptr<const Data> data, std::string_view typeIdentifier);

    /// Calls. An icon of one file costs the desktop a look-up; a listing may have thousands of rows.
    static constexpr int fileIconBudget = 150;

private:
    std::optional<std::string> addIcon(std::optional<Data> icon);

    IconSource* icons_;
    std::map<std::string, Attachment> attachments_;
    /// References by "file:" + path or "type:" + identifier; none where the look-up found nothing.
    std::unordered_map<std::string, std::optional<std::string>> sources_;
    int fileIconBudget_ = fileIconBudget;
};

} // namespace quillmar
