// Archives: the whole command against what lists or decompresses the same file elsewhere.
//
// The archives are made once, in the system's temporary folder, by the machine's own tools.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Samples.h"

namespace quillmar {
namespace {

void compare(const std::string& archive, const std::vector<CommandRun::Command>& rivals) {
    CommandRun::compare(archive, Samples::archive, rivals);
}

const bool registered = [] {
    compare("tree.zip", {{"unzip", "-l"}, {"bsdtar", "-tvf"}});
    compare("tree.tar", {{"tar", "-tvf"}, {"bsdtar", "-tvf"}});
    compare("tree.tar.gz", {{"bsdtar", "-tvf"}, {"tar", "-tvf"}});
    compare("large.tar.gz", {{"bsdtar", "-tvf"}});
    compare("tree-blocks.tar.xz", {{"xz", "-T1", "-dc"}, {"bsdtar", "-tvf"}});
    compare("tree-one-block.tar.xz", {{"xz", "-dc"}});
    return true;
}();

} // namespace
} // namespace quillmar
