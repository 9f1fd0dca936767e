#include "Tests/QuillmarViewer/StagedWorker.h"

#include "QuillmarQuickLook/MessageSocket.h"
#include "QuillmarQuickLook/Worker/PreviewWorker.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <climits>
#include <filesystem>

namespace quillmar::StagedWorker {
namespace {

constexpr std::string_view colorPrefix = "color-";

std::string pageOf(const FileURL& item) {
    const std::string name = item.lastPathComponent();
    if (!name.starts_with(colorPrefix)) return contentsOf(item.path());
    constexpr std::size_t digits = 6;
    return std::string("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n</head>\n"
                       "<body style=\"background:#")
        .append(name, colorPrefix.size(), digits)
        .append("\"></body></html>");
}

} // namespace

int run() {
    const MessageSocket host(PreviewWorker::socketDescriptor, MessageSocket::forever);
    const auto job = host.receive(PATH_MAX + 1);
    if (!job || job->empty()) return 1;
    const FileURL item = FileURL::standardized(job->substr(1), FileURL::root());
    if (item.lastPathComponent().starts_with("slow")) {
        static_cast<void>(host.receive(1)); // until the host hangs up
        return 1;
    }
    constexpr double width = 500;
    constexpr double height = 400;
    const PreviewDocument document{.html = pageOf(item), .attachments = {}, .width = width, .height = height};
    using WorkerMessages::Request;
    const bool isSent =
        host.send(WorkerMessages::encoded(Request{
            .kind = Request::Kind::document, .maxBytes = 0, .text = WorkerMessages::encoded(document)})) &&
        host.send(document.html);
    return isSent ? 0 : 1;
}

void makePrograms(const std::string& folder) {
    const std::filesystem::path place(folder);
    std::filesystem::copy_file(std::filesystem::path(QUILLMAR_BIN_FOLDER) / "QuillmarViewer",
                               place / "QuillmarViewer");
    std::filesystem::create_symlink(std::filesystem::read_symlink("/proc/self/exe"),
                                    place / "QuillmarQuickLook");
}

} // namespace quillmar::StagedWorker
