#pragma once

#include "PreviewDocument.h"
#include "Support/ImageFiles.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// What host and worker say to each other. Numbers are little-endian; every piece of bytes has its length in
/// front. Neither side believes the other: what is not exactly of the form is none.
namespace quillmar::WorkerMessages {

/// What a worker asks of its host, or tells it at last.
struct Request {
    enum class Kind : std::uint8_t {
        typeIcon = 1, ///< `text` is a uniform type identifier
        fileIcon = 2, ///< `text` is a path
        image = 3,    ///< `text` is a path, `maxBytes` how much of it is wanted at most
        document = 4, ///< the work is done: `text` is the document's form, and its HTML is the next message
    };
    Kind kind = Kind::document;
    std::int64_t maxBytes = 0;
    std::string text;
};
std::string encoded(const Request& request);
std::optional<Request> decodedRequest(std::string message);

/// What the host answers: an icon's or an image's bytes, or nothing.
std::string encodedAnswer(const std::optional<ImageFiles::Image>& image);
std::optional<ImageFiles::Image> decodedAnswer(DataView message);

/// All of a document but its HTML, which is large and goes as it stands. Data that several attachments share is
/// written once.
std::string encoded(const PreviewDocument& document);
/// None when names, sizes or numbers are not those of a preview.
std::optional<PreviewDocument> decodedDocument(DataView form, std::string html);

/// Bytes of a message. A document may hold 256 MiB of images, and icons; the largest pages are smaller.
inline constexpr std::size_t maxMessageBytes = 671'088'640;
/// Attachments of a document: an image in every other line of the longest.
inline constexpr std::size_t maxAttachments = 1'048'576;

} // namespace quillmar::WorkerMessages
