#include "QuillmarQuickLook/Worker/WorkerMessages.h"

#include <bit>
#include <cmath>
#include <map>
#include <vector>

namespace quillmar::WorkerMessages {
namespace {

/// At the start of a document: another form gets another number.
constexpr std::uint64_t formVersion = 0x324D5251;

/// Points. No panel is larger.
constexpr double maxSide = 10'000;

constexpr std::string_view attachmentPrefix = "asset-";

void appendNumber(std::string& form, std::uint64_t number) {
    for (int shift = 0; shift < 64; shift += 8) form += static_cast<char>(number >> shift & 0xFFU);
}

void appendBytes(std::string& form, std::string_view bytes) {
    appendNumber(form, bytes.size());
    form.append(bytes);
}

/// Reads pieces from the front. Once one is not there, none is any more.
class Pieces {
public:
    explicit Pieces(DataView form) : rest_(form) {}

    std::uint64_t number() {
        constexpr std::size_t bytes = 8;
        if (rest_.size() < bytes) return fail();
        std::uint64_t number = 0;
        for (std::size_t i = bytes; i-- > 0;) number = number << 8 | static_cast<unsigned char>(rest_[i]);
        rest_.remove_prefix(bytes);
        return number;
    }

    std::string_view bytes() {
        const std::uint64_t size = number();
        if (size > rest_.size()) fail();
        if (hasFailed_) return {};
        const std::string_view bytes = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return bytes;
    }

    /// Everything has been there, and nothing is left.
    bool isDone() const { return !hasFailed_ && rest_.empty(); }
    bool hasFailed() const { return hasFailed_; }

private:
    std::uint64_t fail() {
        hasFailed_ = true;
        rest_ = {};
        return 0;
    }

    DataView rest_;
    bool hasFailed_ = false;
};

bool isSide(double side) { return std::isfinite(side) && side > 0 && side <= maxSide; }

/// Names become names of files: a worker's are digits behind the prefix.
bool isAttachmentName(std::string_view name) {
    constexpr std::size_t maxDigits = 7;
    if (!name.starts_with(attachmentPrefix)) return false;
    const std::string_view digits = name.substr(attachmentPrefix.size());
    return !digits.empty() && digits.size() <= maxDigits &&
           digits.find_first_not_of("0123456789") == digits.npos;
}

} // namespace

std::string encoded(const Request& request) {
    std::string message;
    appendNumber(message, static_cast<std::uint64_t>(request.kind));
    appendNumber(message, static_cast<std::uint64_t>(request.maxBytes));
    message += request.text;
    return message;
}

std::optional<Request> decodedRequest(std::string message) {
    Pieces pieces(message);
    const std::uint64_t kind = pieces.number();
    const std::uint64_t maxBytes = pieces.number();
    constexpr auto last = static_cast<std::uint64_t>(Request::Kind::document);
    if (pieces.hasFailed() || kind < 1 || kind > last) return std::nullopt;
    constexpr std::size_t headBytes = 16;
    message.erase(0, headBytes);
    return Request{.kind = static_cast<Request::Kind>(kind),
                   .maxBytes = static_cast<std::int64_t>(maxBytes),
                   .text = std::move(message)};
}

std::string encodedAnswer(const std::optional<ImageFiles::Image>& image) {
    std::string message;
    if (!image) return message;
    appendBytes(message, image->typeIdentifier);
    appendBytes(message, *image->data);
    return message;
}

std::optional<ImageFiles::Image> decodedAnswer(DataView message) {
    Pieces pieces(message);
    const std::string_view type = pieces.bytes();
    const std::string_view data = pieces.bytes();
    if (!pieces.isDone()) return std::nullopt;
    return ImageFiles::Image{.data = std::make_shared<const Data>(data), .typeIdentifier = std::string(type)};
}

std::string encoded(const PreviewDocument& document) {
    std::map<const Data*, std::uint64_t> numbers;
    std::vector<const Data*> shared;
    for (const auto& [name, attachment] : document.attachments)
        if (numbers.try_emplace(attachment.data.get(), shared.size()).second)
            shared.push_back(attachment.data.get());

    std::string form;
    appendNumber(form, formVersion);
    appendNumber(form, std::bit_cast<std::uint64_t>(document.width));
    appendNumber(form, std::bit_cast<std::uint64_t>(document.height));
    appendNumber(form, shared.size());
    for (const Data* data : shared) appendBytes(form, *data);
    appendNumber(form, document.attachments.size());
    for (const auto& [name, attachment] : document.attachments) {
        appendBytes(form, name);
        appendBytes(form, attachment.typeIdentifier);
        appendNumber(form, numbers.at(attachment.data.get()));
    }
    return form;
}

std::optional<PreviewDocument> decodedDocument(DataView form, std::string html) {
    Pieces pieces(form);
    if (pieces.number() != formVersion) return std::nullopt;
    PreviewDocument document;
    document.width = std::bit_cast<double>(pieces.number());
    document.height = std::bit_cast<double>(pieces.number());
    if (!isSide(document.width) || !isSide(document.height)) return std::nullopt;
    document.html = std::move(html);

    std::vector<std::shared_ptr<const Data>> shared;
    const std::uint64_t sharedCount = pieces.number();
    if (sharedCount > maxAttachments) return std::nullopt;
    while (shared.size() < sharedCount && !pieces.hasFailed())
        shared.push_back(std::make_shared<const Data>(pieces.bytes()));

    const std::uint64_t count = pieces.number();
    if (count > maxAttachments) return std::nullopt;
    for (std::uint64_t i = 0; i < count && !pieces.hasFailed(); ++i) {
        const std::string_view name = pieces.bytes();
        const std::string_view type = pieces.bytes();
        const std::uint64_t number = pieces.number();
        if (!isAttachmentName(name) || number >= shared.size()) return std::nullopt;
        const bool isNew =
            document.attachments
                .try_emplace(std::string(name), PreviewAssets::Attachment{.data = shared[number],
                                                                          .typeIdentifier = std::string(type)})
                .second;
        if (!isNew) return std::nullopt;
    }
    if (!pieces.isDone()) return std::nullopt;
    return document;
}

} // namespace quillmar::WorkerMessages
