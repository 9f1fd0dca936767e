#include "QuillmarQuickLook/CommandLine.h"

int main(int argc, char** argv) { return static_cast<int>(quillmar::CommandLine::run(argc, argv)); }
