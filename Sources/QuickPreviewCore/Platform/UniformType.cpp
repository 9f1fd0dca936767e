#include "Platform/UniformType.h"

#include "Platform/Text.h"
#include "Platform/UniformTypeTable.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace quillmar {
namespace {

using UniformTypeTable::Index;
using UniformTypeTable::types;

std::optional<Index> indexOf(std::string_view identifier) {
    const auto found = std::ranges::lower_bound(types, identifier, {}, &UniformTypeTable::Type::identifier);
    if (found == types.end() || found->identifier != identifier) return std::nullopt;
    return static_cast<Index>(found - types.begin());
}

/// The type itself and all its ancestors, nearest first (breadth first, in the order of the parents).
std::vector<Index> lineage(Index type) {
    std::vector<Index> found{type};
    for (std::size_t next = 0; next < found.size(); ++next)
        for (const Index parent : types[found[next]].parents)
            if (std::ranges::find(found, parent) == found.end()) found.push_back(parent);
    return found;
}

/// All types that claim \p extension.
std::span<const UniformTypeTable::Extension> claims(std::string_view extension) {
    const auto byName = [](const auto& row) { return row.name; };
    const std::string name = lowercased(extension);
    const auto first = std::ranges::lower_bound(UniformTypeTable::extensions, name, {}, byName);
    const auto last = std::ranges::upper_bound(UniformTypeTable::extensions, name, {}, byName);
    return {first, last};
}

constexpr std::string_view applicationBundle = "com.apple.application-bundle";
constexpr std::string_view package = "com.apple.package";
constexpr std::array<std::string_view, 3> directoryTypes{"public.directory", "com.apple.bundle", package};

bool isDirectoryType(const UniformType& type) {
    return std::ranges::any_of(directoryTypes, [&](auto identifier) { return type.conformsTo(identifier); });
}

} // namespace

std::optional<UniformType> UniformType::withIdentifier(std::string_view identifier) {
    const auto index = indexOf(identifier);
    if (!index) return std::nullopt;
    return UniformType(*index);
}

std::optional<UniformType> UniformType::ofFile(std::string_view extension) {
    for (const auto& claim : claims(extension)) {
        const UniformType type(claim.type);
        if (type.identifier() == applicationBundle || !isDirectoryType(type)) return type;
    }
    return std::nullopt;
}

std::optional<UniformType> UniformType::ofPackage(std::string_view extension) {
    for (const auto& claim : claims(extension)) {
        const UniformType type(claim.type);
        if (type.conformsTo(package)) return type;
    }
    return std::nullopt;
}

std::string_view UniformType::identifier() const { return types[index_].identifier; }

std::optional<std::string_view> UniformType::localizedDescription() const {
    for (const Index type : quillmar::lineage(index_))
        if (!types[type].description.empty()) return types[type].description;
    return std::nullopt;
}

std::string_view UniformType::mimeType() const { return types[index_].mimeType; }

std::vector<UniformType> UniformType::lineage() const {
    std::vector<UniformType> steps;
    for (const Index type : quillmar::lineage(index_)) steps.push_back(UniformType(type));
    return steps;
}

bool UniformType::conformsTo(std::string_view identifier) const {
    const auto wanted = indexOf(identifier);
    if (!wanted) return false;
    const auto own = quillmar::lineage(index_);
    return std::ranges::find(own, *wanted) != own.end();
}

} // namespace quillmar
