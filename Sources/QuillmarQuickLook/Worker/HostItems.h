#pragma once

#include "QuillmarQuickLook/MessageSocket.h"
#include "Support/IconSource.h"
#include "Support/ImageFiles.h"

namespace quillmar {

/// Icons that a worker gets from its host.
class HostIcons : public IconSource {
public:
    /// \p host must outlive this object.
    explicit HostIcons(const MessageSocket& host) : host_(host) {}

    std::optional<Data> iconForType(std::string_view identifier) override;
    std::optional<Data> iconForFile(const FileURL& url) override;

private:
    const MessageSocket& host_;
};

/// Images of a document that a worker gets from its host.
class HostImages : public ImageFiles {
public:
    /// \p host must outlive this object.
    explicit HostImages(const MessageSocket& host) : host_(host) {}

    std::optional<Image> image(const FileURL& url, std::int64_t maxBytes) override;

private:
    const MessageSocket& host_;
};

} // namespace quillmar
