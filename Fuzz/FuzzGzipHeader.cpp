#include "Archives/GzipHeader.h"
#include "Fuzz/FuzzTarget.h"
#include "Platform/UTF8.h"

namespace quillmar {

void fuzz(DataView input) {
    const auto header = GzipHeader::parse(input);
    if (!header) return;
    require(header->headerLength >= 10);
    require(header->headerLength <= input.size());
    if (header->originalName) {
        require(!header->originalName->empty());
        require(UTF8::validPrefix(*header->originalName) == header->originalName->size());
    }
    // What stands behind a header does not change it, and a header that is cut is none.
    require(GzipHeader::parse(input.substr(0, header->headerLength)) == header);
    require(!GzipHeader::parse(input.substr(0, header->headerLength - 1)));
}

} // namespace quillmar
