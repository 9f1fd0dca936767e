#include "QuillmarQuickLook/CommandLine.h"
#include "QuillmarQuickLook/Worker/PreviewWorker.h"

#include <string_view>

int main(int argc, char** argv) {
    using namespace quillmar;
    if (argc == 2 && argv[1] == std::string_view(PreviewWorker::argument)) return PreviewWorker::run();
    return static_cast<int>(CommandLine::run(argc, argv));
}
