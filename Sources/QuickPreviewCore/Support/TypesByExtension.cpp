#include "Support/TypesByExtension.h"

#include "Platform/FileURL.h"

namespace quillmar {

const TypesByExtension::FileType& TypesByExtension::ofName(std::string_view name) {
    const std::string_view extension = pathExtension(name);
    const auto [known, isNew] = types_.try_emplace(extension);
    FileType& file = known->second;
    if (isNew && !extension.empty()) {
        file.type = UniformType::ofFile(extension);
        file.kind = fileKind(file.type, false);
    }
    return file;
}

} // namespace quillmar
