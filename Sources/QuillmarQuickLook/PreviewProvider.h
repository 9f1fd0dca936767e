#pragma once

#include "Platform/FileURL.h"
#include "PreviewDocument.h"
#include "QuillmarQuickLook/Logger.h"
#include "QuillmarQuickLook/PreviewReply.h"
#include "Support/IconSource.h"

#include <functional>

namespace quillmar {

struct FilePreviewRequest {
    FileURL fileURL;
};

/// Answers preview requests with pages made by the core. A host puts a platform's interface in front of it.
class PreviewProvider {
public:
    /// What makes the documents: `QuickPreview::document` in this process, or a process that may do less.
    using MakeDocument = std::function<PreviewDocument(const FileURL&, IconSource*)>;

    /// \p icons may be null and must outlive the provider. \p isVerbose shows the debug messages.
    PreviewProvider(IconSource* icons, bool isVerbose, MakeDocument makeDocument = documentInThisProcess);

    /// Never fails for reasons of content: what cannot be shown is a page that says so.
    PreviewReply providePreview(const FilePreviewRequest& request) const;

    static PreviewDocument documentInThisProcess(const FileURL& url, IconSource* icons);

private:
    IconSource* icons_;
    MakeDocument makeDocument_;
    Logger log_;
};

} // namespace quillmar
