#include "QuillmarQuickLook/Worker/HostItems.h"

#include "Platform/ResourceValues.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"

#include <cstdlib>

namespace quillmar {
namespace {

using WorkerMessages::Request;

/// Ends the worker when the host cannot be understood any more: what comes next could belong to another
/// question, and a page without its worker is a message, not one with wrong pictures.
std::optional<ImageFiles::Image> ask(const MessageSocket& host, const Request& request) {
    if (!host.send(WorkerMessages::encoded(request))) std::_Exit(EXIT_FAILURE);
    const auto answer = host.receive(WorkerMessages::maxMessageBytes);
    if (!answer) std::_Exit(EXIT_FAILURE);
    return WorkerMessages::decodedAnswer(*answer);
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
