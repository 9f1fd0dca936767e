// Prints the page of a file or folder: all that a program needs to do to show previews of its own.
//
// The core reads what strangers have made. A program that shows previews of anything should call it in a
// process that can do nothing else, as Quillmar's host does.

#include <QuickPreview.h>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const auto url = quillmar::FileURL::fromCommandLine(argv[1]);
    const quillmar::PreviewDocument document = quillmar::QuickPreview::document(url, nullptr);
    std::fwrite(document.html.data(), 1, document.html.size(), stdout);
    std::fprintf(stderr, "%.0f by %.0f points\n", document.width, document.height);
}
