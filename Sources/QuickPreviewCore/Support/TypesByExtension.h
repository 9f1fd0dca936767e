#pragma once

#include "Support/FileKind.h"

#include <map>
#include <optional>
#include <string_view>

namespace quillmar {

/// The types of files by their names, each extension looked up once. Ordered, not hashed: nobody can choose
/// extensions that collide.
class TypesByExtension {
public:
    struct FileType {
        std::optional<UniformType> type;
        FileKind kind = FileKind::other;
    };

    /// \p name must outlive this object.
    const FileType& ofName(std::string_view name);

private:
    std::map<std::string_view, FileType> types_;
};

} // namespace quillmar
