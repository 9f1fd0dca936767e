#include "QuillmarQuickLook/Worker/PreviewWorker.h"
#include "Tests/QuillmarQuickLook/Worker/MisbehavingWorker.h"

#include <gtest/gtest.h>
#include <string_view>
#include <unistd.h>

/// All tests; or a worker, for the program that makes previews starts itself as one, and in tests it is this.
int main(int argc, char** argv) {
    using namespace quillmar;
    if (argc == 2 && argv[1] == std::string_view(PreviewWorker::argument)) {
        const auto conduct = MisbehavingWorker::wantedConduct();
        ::_exit(conduct ? MisbehavingWorker::run(*conduct) : PreviewWorker::run());
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
