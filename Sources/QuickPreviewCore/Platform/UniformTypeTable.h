#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The type table as constants. `uniform-types.tsv` is the source; GenerateUniformTypes writes the values.
namespace quillmar::UniformTypeTable {

using Index = std::uint16_t;

struct Type {
    std::string_view identifier;
    std::string_view mimeType;      ///< empty: none
    std::string_view description;   ///< empty: inherited
    std::span<const Index> parents; ///< in the order of the table's column
};

struct Extension {
    std::string_view name; ///< lower case
    Index type;
};

extern const std::span<const Type> types;           ///< sorted by identifier
extern const std::span<const Extension> extensions; ///< sorted by name; one name may stand for several types

} // namespace quillmar::UniformTypeTable
