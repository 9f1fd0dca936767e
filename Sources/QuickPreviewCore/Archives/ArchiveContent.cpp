#include "Archives/ArchiveContent.h"

namespace quillmar {

std::string_view displayName(ArchiveFormat format) {
    switch (format) {
    case ArchiveFormat::zip: return "ZIP archive";
    case ArchiveFormat::tar: return "Tar archive";
    case ArchiveFormat::tarGzip: return "Tar archive, gzip-compressed";
    case ArchiveFormat::tarXz: return "Tar archive, xz-compressed";
    case ArchiveFormat::gzip: return "Gzip-compressed file";
    case ArchiveFormat::xz: return "XZ-compressed file";
    }
    return {};
}

} // namespace quillmar
