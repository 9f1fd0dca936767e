#pragma once

#include "Platform/FileURL.h"
#include "PreviewDocument.h"
#include "Support/IconSource.h"
#include "Support/ImageFiles.h"

#include <string_view>

/// The core's one entry: a path goes in, a page comes out.
namespace quillmar::QuickPreview {

/// The preview of the item at \p url. Never fails: what cannot be shown gets a page that says why. \p icons may
/// be null, and so may \p images: then they come from the file system. No state is kept between calls.
PreviewDocument document(const FileURL& url, IconSource* icons, ImageFiles* images = nullptr);

/// True when the item's page may hold images that it names: it is a Markdown document.
bool mayNameImages(const FileURL& url);

/// The page of an item at \p url that could not be read; \p message is a sentence that says why.
PreviewDocument failure(const FileURL& url, std::string_view message, IconSource* icons);

} // namespace quillmar::QuickPreview
