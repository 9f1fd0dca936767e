#include "QuillmarQuickLook/Worker/WorkerMessages.h"

#include "Tests/Helpers/Documents.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace quillmar::WorkerMessages {
namespace {

using namespace std::string_literals;

constexpr double infinity = std::numeric_limits<double>::infinity();

// Forms, piece by piece

std::string number(std::uint64_t value) {
    std::string bytes;
    for (int i = 0; i < 8; ++i, value >>= 8) bytes += static_cast<char>(value & 0xFF);
    return bytes;
}
std::string number(double value) { return number(std::bit_cast<std::uint64_t>(value)); }
std::string piece(std::string_view bytes) { return number(std::uint64_t{bytes.size()}).append(bytes); }

std::string attachment(std::string_view name, std::uint64_t data = 0) {
    return piece(name) + piece("public.png") + number(data);
}

/// A document with one piece of data, which every attachment may have.
struct Form {
    std::string version = number(std::uint64_t{0x324D5251});
    std::string width = number(780.0);
    std::string height = number(620.0);
    std::string dataCount = number(std::uint64_t{1});
    std::string data = piece("pixels");
    std::string attachmentCount = number(std::uint64_t{1});
    std::string attachments = attachment("asset-0");

    std::string bytes() const {
        return version + width + height + dataCount + data + attachmentCount + attachments;
    }
};

PreviewDocument page() { return {.html = "page", .attachments = {}, .width = 780, .height = 620}; }

PreviewDocument pageWithAttachments() {
    PreviewDocument document = page();
    const auto shared = std::make_shared<const Data>("pixels");
    document.attachments["asset-0"] = {.data = shared, .typeIdentifier = "public.png"};
    document.attachments["asset-1"] = {.data = std::make_shared<const Data>("\0\xFF"s), .typeIdentifier = ""};
    document.attachments["asset-10"] = {.data = shared, .typeIdentifier = "public.jpeg"};
    document.attachments["asset-2"] = {.data = std::make_shared<const Data>(), .typeIdentifier = "public.png"};
    return document;
}

/// The document of \p form, its HTML as that of `page`.
std::optional<PreviewDocument> decodedForm(DataView form) { return decodedDocument(form, "page"); }

/// What the header promises of every document that is one.
bool isValid(const PreviewDocument& document) {
    for (const double side : {document.width, document.height})
        if (!std::isfinite(side) || side <= 0 || side > 10'000) return false;
    for (const auto& [name, one] : document.attachments)
        if (!one.data || !name.starts_with("asset-") || name.size() < 7 ||
            name.find_first_not_of("0123456789", 6) != name.npos)
            return false;
    return true;
}

// Requests

TEST(WorkerMessages, readsRequestsBack) {
    for (const auto kind :
         {Request::Kind::typeIcon, Request::Kind::fileIcon, Request::Kind::image, Request::Kind::document})
        for (const std::int64_t bytes : {std::int64_t{0}, std::int64_t{8'388'608}, std::int64_t{-1},
                                         std::numeric_limits<std::int64_t>::max()})
            for (const std::string& text : {""s, "public.png"s, "/a\0\xFF\n"s, std::string(100'000, 'x')}) {
                const auto request = decodedRequest(encoded({.kind = kind, .maxBytes = bytes, .text = text}));
                ASSERT_TRUE(request);
                EXPECT_EQ(request->kind, kind);
                EXPECT_EQ(request->maxBytes, bytes);
                EXPECT_EQ(request->text, text);
            }
}

TEST(WorkerMessages, writesNumbersFromTheLowestByte) {
    EXPECT_EQ(encoded({.kind = Request::Kind::image, .maxBytes = 0x0102, .text = "/a"}),
              "\3\0\0\0\0\0\0\0\2\1\0\0\0\0\0\0/a"s);
}

TEST(WorkerMessages, takesNoRequestOfAnUnknownKind) {
    for (const std::uint64_t kind : {std::uint64_t{0}, std::uint64_t{5}, std::uint64_t{0x101},
                                     std::uint64_t{1} << 32, std::numeric_limits<std::uint64_t>::max()})
        EXPECT_FALSE(decodedRequest(number(kind) + number(std::uint64_t{0}) + "text")) << kind;
}

TEST(WorkerMessages, takesNoRequestThatIsCut) {
    const std::string whole = encoded({.kind = Request::Kind::typeIcon, .maxBytes = 1, .text = ""});
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(decodedRequest(whole.substr(0, size))) << size;
}

// Answers

TEST(WorkerMessages, readsAnswersBack) {
    for (const Data& data : {""s, "pixels"s, "\0\xFF"s, std::string(100'000, 'x')})
        for (const std::string& type : {""s, "public.png"s}) {
            const auto answer = decodedAnswer(encodedAnswer(
                ImageFiles::Image{.data = std::make_shared<const Data>(data), .typeIdentifier = type}));
            ASSERT_TRUE(answer);
            EXPECT_EQ(*answer->data, data);
            EXPECT_EQ(answer->typeIdentifier, type);
        }
}

TEST(WorkerMessages, answersNothingWithNothing) {
    EXPECT_EQ(encodedAnswer(std::nullopt), "");
    EXPECT_FALSE(decodedAnswer(""));
}

TEST(WorkerMessages, takesNoAnswerThatIsCutOrTooLong) {
    const std::string whole = piece("public.png") + piece("pixels");
    ASSERT_TRUE(decodedAnswer(whole));
    EXPECT_FALSE(decodedAnswer(whole + '\0'));
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(decodedAnswer(DataView(whole).substr(0, size))) << size;
}

TEST(WorkerMessages, takesNoAnswerWhoseLengthsLie) {
    for (const std::uint64_t length : {std::uint64_t{5}, std::uint64_t{7}, std::uint64_t{1} << 32,
                                       std::uint64_t{1} << 63, std::numeric_limits<std::uint64_t>::max()}) {
        EXPECT_FALSE(decodedAnswer(piece("public.png") + number(length) + "pixels")) << length;
        EXPECT_FALSE(decodedAnswer(number(length) + "public.png" + piece("pixels"))) << length;
    }
}

// Documents

TEST(WorkerMessages, readsDocumentsBack) {
    PreviewDocument empty = page();
    empty.html.clear();
    PreviewDocument large = page();
    large.html = std::string(3'000'000, '\0');
    large.width = 0.5;
    large.height = 10'000;
    for (const PreviewDocument& document : {page(), pageWithAttachments(), empty, large}) {
        const auto decoded = decodedDocument(encoded(document), document.html);
        ASSERT_TRUE(decoded);
        EXPECT_TRUE(areSame(*decoded, document));
    }
}

TEST(WorkerMessages, writesSharedDataOnce) {
    const PreviewDocument document = pageWithAttachments();
    const std::string form = encoded(document);
    EXPECT_EQ(form.find("pixels"), form.rfind("pixels"));
    const auto decoded = decodedForm(form);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->attachments.at("asset-0").data, decoded->attachments.at("asset-10").data);
    EXPECT_NE(decoded->attachments.at("asset-0").data, decoded->attachments.at("asset-1").data);
}

TEST(WorkerMessages, takesTheFormThatTheseTestsWrite) {
    const auto document = decodedForm(Form().bytes());
    ASSERT_TRUE(document);
    EXPECT_EQ(document->html, "page");
    EXPECT_EQ(*document->attachments.at("asset-0").data, "pixels");
    EXPECT_EQ(encoded(*document), Form().bytes());
}

TEST(WorkerMessages, takesNoDocumentThatIsCut) {
    for (const std::string& whole : {encoded(page()), encoded(pageWithAttachments())})
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_FALSE(decodedForm(DataView(whole).substr(0, size))) << size;
}

TEST(WorkerMessages, takesNoDocumentThatGoesOn) {
    EXPECT_FALSE(decodedForm(encoded(page()) + '\0'));
    EXPECT_FALSE(decodedForm(encoded(page()) + encoded(page())));
}

TEST(WorkerMessages, takesNothingButValidDocumentsWhateverByteIsChanged) {
    const std::string whole = encoded(pageWithAttachments());
    std::size_t documents = 0;
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const unsigned change : {0x01U, 0x02U, 0x04U, 0x08U, 0x10U, 0x20U, 0x40U, 0x80U, 0xFFU}) {
            std::string changed = whole;
            changed[at] = static_cast<char>(static_cast<unsigned char>(changed[at]) ^ change);
            const auto document = decodedForm(changed);
            if (!document) continue;
            ++documents;
            EXPECT_TRUE(isValid(*document)) << at;
            const auto again = decodedForm(encoded(*document));
            EXPECT_TRUE(again && areSame(*again, *document)) << at;
        }
    EXPECT_GT(documents, 0U); // letters of types, at least
}

TEST(WorkerMessages, takesNoOtherVersion) {
    for (const std::uint64_t version :
         {std::uint64_t{0}, std::uint64_t{0x314D5251}, std::uint64_t{0x01'0000'0000} + 0x324D5251}) {
        const Form form{.version = number(version)};
        EXPECT_FALSE(decodedForm(form.bytes())) << version;
    }
}

TEST(WorkerMessages, takesNoSizeThatNoPanelHas) {
    for (const double side : {0.0, -0.0, -1.0, 10'000.001, 1e300, infinity, -infinity, std::nan("")}) {
        EXPECT_FALSE(decodedForm(Form{.width = number(side)}.bytes())) << side;
        EXPECT_FALSE(decodedForm(Form{.height = number(side)}.bytes())) << side;
    }
}

TEST(WorkerMessages, takesSizesOfPanels) {
    for (const double side : {0.001, 1.0, 10'000.0})
        EXPECT_TRUE(decodedForm(Form{.width = number(side), .height = number(side)}.bytes())) << side;
}

TEST(WorkerMessages, takesNoDocumentWhoseLengthsLie) {
    for (const std::uint64_t length : {std::uint64_t{3}, std::uint64_t{5}, std::uint64_t{1} << 32,
                                       std::uint64_t{1} << 63, std::numeric_limits<std::uint64_t>::max()}) {
        EXPECT_FALSE(decodedForm(Form{.data = number(length) + "pixels"}.bytes())) << length;
        const std::string name = number(length) + "asset-0" + piece("public.png") + number(std::uint64_t{0});
        EXPECT_FALSE(decodedForm(Form{.attachments = name}.bytes())) << length;
        const std::string type = piece("asset-0") + number(length) + "public.png" + number(std::uint64_t{0});
        EXPECT_FALSE(decodedForm(Form{.attachments = type}.bytes())) << length;
    }
}

TEST(WorkerMessages, takesNoDocumentWhoseCountsLie) {
    for (const std::uint64_t count :
         {std::uint64_t{0}, std::uint64_t{2}, std::uint64_t{maxAttachments}, std::uint64_t{maxAttachments} + 1,
          std::uint64_t{1} << 63, std::numeric_limits<std::uint64_t>::max()}) {
        EXPECT_FALSE(decodedForm(Form{.dataCount = number(count)}.bytes())) << count;
        EXPECT_FALSE(decodedForm(Form{.attachmentCount = number(count)}.bytes())) << count;
    }
}

TEST(WorkerMessages, takesNoMoreDataThanAttachmentsMayHave) {
    const std::string empty = piece("");
    std::string data;
    for (std::size_t i = 0; i < maxAttachments; ++i) data += empty;
    Form form{.dataCount = number(std::uint64_t{maxAttachments}), .data = data};
    EXPECT_TRUE(decodedForm(form.bytes()));
    form.dataCount = number(std::uint64_t{maxAttachments} + 1);
    form.data += empty;
    EXPECT_FALSE(decodedForm(form.bytes()));
}

TEST(WorkerMessages, takesNoAttachmentOfDataThatThereIsNot) {
    for (const std::uint64_t data :
         {std::uint64_t{1}, std::uint64_t{1} << 32, std::numeric_limits<std::uint64_t>::max()})
        EXPECT_FALSE(decodedForm(Form{.attachments = attachment("asset-0", data)}.bytes())) << data;
}

TEST(WorkerMessages, takesNoNameThatCouldNameSomethingElse) {
    for (const std::string& name :
         {""s,           "asset-"s,         "asset"s,          "0"s,
          "asset-x"s,    "asset-0x"s,       "asset--1"s,       "asset-+1"s,
          "asset- 1"s,   "asset-1 "s,       "asset-0.png"s,    "asset-."s,
          "asset-.."s,   "asset-/0"s,       "asset-0/0"s,      "asset-0/../../x"s,
          "../asset-0"s, "/asset-0"s,       "./asset-0"s,      "../../x"s,
          "index.html"s, "Asset-0"s,        "asset_0"s,        "asset-0\0"s,
          "\0asset-0"s,  "asset-\xD9\xA1"s, "asset-12345678"s, "asset-" + std::string(1'000, '1')})
        EXPECT_FALSE(decodedForm(Form{.attachments = attachment(name)}.bytes())) << name;
}

TEST(WorkerMessages, takesNamesOfAttachments) {
    for (const char* name : {"asset-0", "asset-9", "asset-149", "asset-1048575", "asset-9999999"})
        EXPECT_TRUE(decodedForm(Form{.attachments = attachment(name)}.bytes())) << name;
}

TEST(WorkerMessages, takesNoNameTwice) {
    Form form{.attachmentCount = number(std::uint64_t{2}),
              .attachments = attachment("asset-0") + attachment("asset-1")};
    EXPECT_TRUE(decodedForm(form.bytes()));
    form.attachments = attachment("asset-0") + attachment("asset-0");
    EXPECT_FALSE(decodedForm(form.bytes()));
}

TEST(WorkerMessages, takesNothingForADocumentThatIsAnAnswerOrARequest) {
    EXPECT_FALSE(decodedForm(""));
    EXPECT_FALSE(decodedForm(piece("public.png") + piece("pixels")));
    EXPECT_FALSE(
        decodedForm(encoded(Request{.kind = Request::Kind::document, .maxBytes = 0, .text = encoded(page())})));
}

} // namespace
} // namespace quillmar::WorkerMessages
