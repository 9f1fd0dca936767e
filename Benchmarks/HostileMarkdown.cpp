#include "Benchmarks/HostileMarkdown.h"

namespace quillmar {

HostileDocuments hostileMarkdown() {
    HostileDocuments all = hostileContainers();
    for (const auto& some : {hostileLeafBlocks(), hostileLinks(), hostileInlines()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

} // namespace quillmar
