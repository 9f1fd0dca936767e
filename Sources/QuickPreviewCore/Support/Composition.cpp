#include "Support/Composition.h"

#include "Support/SaturatingSum.h"

#include <algorithm>
#include <functional>

namespace quillmar {

Composition::Composition() {
    for (std::size_t i = 0; i < parts_.size(); ++i) parts_.at(i).kind = allFileKinds.at(i);
}

void Composition::add(FileKind kind, std::int64_t size) {
    CompositionPart& part = parts_.at(static_cast<std::size_t>(kind));
    part.size = saturatingSum(part.size, size);
    ++part.count;
}

std::vector<CompositionPart> Composition::parts() const {
    std::vector<CompositionPart> parts;
    parts.reserve(parts_.size());
    std::ranges::copy_if(parts_, std::back_inserter(parts), [](const auto& part) { return part.count > 0; });
    std::ranges::stable_sort(parts, std::ranges::greater(), &CompositionPart::size);
    return parts;
}

} // namespace quillmar
