#pragma once

#include "Platform/FileURL.h"
#include "PreviewDocument.h"
#include "Support/IconSource.h"

/// The core's one entry: a path goes in, a page comes out.
namespace quillmar::QuickPreview {

/// The preview of the item at \p url. Never fails: what cannot be shown gets a page that says why. \p icons may
/// be null. No state is kept between calls.
PreviewDocument document(const FileURL& url, IconSource* icons);

} // namespace quillmar::QuickPreview
