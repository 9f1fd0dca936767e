#include "Benchmarks/HostileArchives.h"

namespace quillmar {

HostileArchives hostileArchives() {
    HostileArchives all = hostileTars();
    for (const auto& some : {hostileZips(), hostileCompressedFiles()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

} // namespace quillmar
