#include "QuillmarQuickLook/CommandLine.h"
#include "QuillmarQuickLook/Worker/PreviewWorker.h"

#include <string_view>
#include <unistd.h>

int main(int argc, char** argv) {
    using namespace quillmar;
    // Without leave to look around, a worker ends without tidying up.
    if (argc == 2 && argv[1] == std::string_view(PreviewWorker::argument)) ::_exit(PreviewWorker::run());
    return static_cast<int>(CommandLine::run(argc, argv));
}
