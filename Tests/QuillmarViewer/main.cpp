#include "QuillmarQuickLook/Worker/PreviewWorker.h"
#include "Tests/QuillmarViewer/StagedWorker.h"

#include <gtest/gtest.h>
#include <string_view>
#include <unistd.h>

/// All tests; or a worker, when the viewer under test has been given this program as its command.
int main(int argc, char** argv) {
    using namespace quillmar;
    if (argc == 2 && argv[1] == std::string_view(PreviewWorker::argument)) ::_exit(StagedWorker::run());
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
