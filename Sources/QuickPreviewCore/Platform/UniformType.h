#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmar {

/// A type of content with its place in the tree of types ("public.c-source" is source code is text is data).
/// The types are those of `uniform-types.tsv`, compiled in; a value is an index into that table.
class UniformType {
public:
    /// None when the table does not know \p identifier.
    static std::optional<UniformType> withIdentifier(std::string_view identifier);
    /// The type of a file named with \p extension (no dot, any case), as far as a single file can be of it:
    /// packages and other directory types do not answer, but application bundles do.
    static std::optional<UniformType> ofFile(std::string_view extension);
    /// The type of a directory that is shown as one file because of its \p extension.
    static std::optional<UniformType> ofPackage(std::string_view extension);

    std::string_view identifier() const;
    /// English, in the middle of a sentence ("Python script"). A type without one takes its nearest ancestor's.
    std::optional<std::string_view> localizedDescription() const;
    /// The type's own MIME name; empty when it has none.
    std::string_view mimeType() const;
    /// The type itself and all its ancestors, breadth first in the order of the parents.
    std::vector<UniformType> lineage() const;
    /// True when this is the type \p identifier or descends from it.
    bool conformsTo(std::string_view identifier) const;

    bool operator==(const UniformType&) const = default;

private:
    explicit UniformType(std::uint16_t index) : index_(index) {}

    std::uint16_t index_;
};

} // namespace quillmar
