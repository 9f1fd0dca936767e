#pragma once

#include "Platform/FileURL.h"
#include "QuillmarQuickLook/Logger.h"
#include "QuillmarQuickLook/PreviewReply.h"
#include "Support/IconSource.h"

namespace quillmar {

struct FilePreviewRequest {
    FileURL fileURL;
};

/// Answers preview requests with pages made by the core. A host puts a platform's interface in front of it.
class PreviewProvider {
public:
    /// \p icons may be null and must outlive the provider. \p isVerbose shows the debug messages.
    PreviewProvider(IconSource* icons, bool isVerbose);

    /// Never fails for reasons of content: what cannot be shown is a page that says so.
    PreviewReply providePreview(const FilePreviewRequest& request) const;

private:
    IconSource* icons_;
    Logger log_;
};

} // namespace quillmar
