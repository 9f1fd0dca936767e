#include "Platform/DecompressionFilter.h"

#include "Platform/InflateFilter.h"
#include "Platform/XzFilter.h"

namespace quillmar {

DecompressionFilter::Algorithm DecompressionFilter::forWholeXz(DataView head) {
    return XzFilter::statesBlockSizes(head) ? Algorithm::xzBlocks : Algorithm::xz;
}

std::unique_ptr<DecompressionFilter> DecompressionFilter::make(FileHandle& file, Algorithm algorithm) {
    switch (algorithm) {
    case Algorithm::deflate: return std::make_unique<InflateFilter>(file);
    case Algorithm::xz: return std::make_unique<XzFilter>(file, XzFilter::Threads::one);
    case Algorithm::xzBlocks: return std::make_unique<XzFilter>(file, XzFilter::Threads::several);
    }
    return nullptr;
}

} // namespace quillmar
