#include "Fuzz/FuzzTarget.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"
#include "Tests/Helpers/Documents.h"

#include <cmath>
#include <string>

namespace quillmar {
namespace {

void requireSoundness(const PreviewDocument& document) {
    for (const double side : {document.width, document.height}) require(std::isfinite(side) && side > 0);
    require(document.attachments.size() <= WorkerMessages::maxAttachments);
    for (const auto& [name, attachment] : document.attachments) {
        require(attachment.data != nullptr);
        // The name becomes that of a file.
        require(name.starts_with("asset-"));
        require(name.find_first_of(std::string("/.\0", 3)) == name.npos);
    }
}

void fuzzDocument(DataView input) {
    const auto document = WorkerMessages::decodedDocument(input, {});
    if (!document) return;
    requireSoundness(*document);
    const auto again = WorkerMessages::decodedDocument(WorkerMessages::encoded(*document), {});
    require(again && areSame(*again, *document));
    // What is cut is none.
    require(!WorkerMessages::decodedDocument(input.substr(0, input.size() - 1), {}));
}

void fuzzRequest(DataView input) {
    const auto request = WorkerMessages::decodedRequest(std::string(input));
    if (request) require(WorkerMessages::encoded(*request) == input);
}

void fuzzAnswer(DataView input) {
    const auto answer = WorkerMessages::decodedAnswer(input);
    if (answer) require(WorkerMessages::encodedAnswer(answer) == input);
}

} // namespace

void fuzz(DataView input) {
    fuzzDocument(input);
    fuzzRequest(input);
    fuzzAnswer(input);
}

} // namespace quillmar
