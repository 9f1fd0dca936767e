#include "QuillmarQuickLook/Worker/HostItems.h"

#include "Platform/ResourceValues.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"

namespace quillmar {
namespace {

using WorkerMessages::Request;

std::optional<ImageFiles::Image> ask(const MessageSocket& host, const Request& request) {
    if (!host.send(WorkerMessages::encoded(request))) return std::nullopt;
    const auto answer = host.receive(WorkerMessages::maxMessageBytes);
    return answer ? WorkerMessages::decodedAnswer(*answer) : std::nullopt;
}

std::optional<Data> askForIcon(const MessageSocket& host, Request::Kind kind, std::string_view text) {
    const auto icon = ask(host, {.kind = kind, .maxBytes = 0, .text = std::string(text)});
    if (!icon) return std::nullopt;
    return *icon->data;
}

} // namespace

std::optional<Data> HostIcons::iconForType(std::string_view identifier) {
    return askForIcon(host_, Request::Kind::typeIcon, identifier);
}

std::optional<Data> HostIcons::iconForFile(const FileURL& url) {
    return askForIcon(host_, Request::Kind::fileIcon, url.path());
}

std::optional<ImageFiles::Image> HostImages::image(const FileURL& url, std::int64_t maxBytes) {
    // What is no image of that size need not be asked for: looking is allowed, opening is not.
    const auto values = resourceValues(url);
    if (!values || !values->fileSize || *values->fileSize > maxBytes) return std::nullopt;
    return ask(host_, {.kind = Request::Kind::image, .maxBytes = maxBytes, .text = url.path()});
}

} // namespace quillmar
