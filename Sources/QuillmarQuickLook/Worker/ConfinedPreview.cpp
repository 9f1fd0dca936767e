#include "QuillmarQuickLook/Worker/ConfinedPreview.h"

#include "Markdown/LocalImageFiles.h"
#include "Markdown/MarkdownLimits.h"
#include "QuickPreview.h"
#include "QuillmarQuickLook/MessageSocket.h"
#include "QuillmarQuickLook/Worker/PreviewWorker.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmar {
namespace {

using WorkerMessages::Request;
using Moment = std::chrono::steady_clock::time_point;

/// A worker's process and the socket to it; killed when this goes.
class Process {
public:
    explicit Process(const std::string& program) {
        std::array<int, 2> ends{};
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], PreviewWorker::socketDescriptor);
        std::string name = "quillmar";
        std::string argument = PreviewWorker::argument;
        std::array<char*, 3> arguments{name.data(), argument.data(), nullptr};
        if (::posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), environ) != 0)
            process_ = -1;
        posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
        socket_ = ends[0];
    }
    ~Process() {
        if (socket_ >= 0) ::close(socket_);
        end();
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    bool isRunning() const { return process_ >= 0; }

    /// Why it has given no answer, for the user. Ends it.
    std::string_view reason(bool isLate) {
        if (process_ < 0) return "No program could be started that reads it.";
        const int status = end();
        const bool ranOutOfTime = WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU;
        return isLate || ranOutOfTime ? "Reading it took too long and was stopped."
                                      : "The program that reads it has stopped unexpectedly.";
    }
    int socket() const { return socket_; }

private:
    /// Its status; that of a process which has ended before does not change.
    int end() {
        int status = 0;
        if (process_ < 0) return status;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, &status, 0);
        process_ = -1;
        return status;
    }

    pid_t process_ = -1;
    int socket_ = -1;
};

/// Answers what a worker may ask, and no more of it than a preview needs.
class Answers {
public:
    Answers(const FileURL& item, IconSource* icons)
        : item_(item), icons_(icons), mayNameImages_(QuickPreview::mayNameImages(item)) {}

    std::optional<ImageFiles::Image> to(const Request& request) {
        switch (request.kind) {
        case Request::Kind::typeIcon: return typeIcon(request.text);
        case Request::Kind::fileIcon: return fileIcon(request.text);
        case Request::Kind::image: return image(request);
        case Request::Kind::document: break;
        }
        return std::nullopt;
    }

private:
    static std::optional<ImageFiles::Image> answer(std::optional<Data> icon) {
        if (!icon) return std::nullopt;
        return ImageFiles::Image{.data = std::make_shared<const Data>(*std::move(icon)),
                                 .typeIdentifier = "public.png"};
    }

    std::optional<ImageFiles::Image> typeIcon(const std::string& identifier) {
        if (icons_ == nullptr || --iconsLeft_ < 0) return std::nullopt;
        return answer(icons_->iconForType(identifier));
    }

    /// Of the item, or of what is in it.
    std::optional<ImageFiles::Image> fileIcon(const std::string& path) {
        if (icons_ == nullptr || --iconsLeft_ < 0 || path.find('\0') != std::string::npos) return std::nullopt;
        const FileURL url = FileURL::standardized(path, FileURL::root());
        return isInItem(url.path()) ? answer(icons_->iconForFile(url)) : std::nullopt;
    }

    bool isInItem(const std::string& path) const {
        const std::string inside = item_.path() == "/" ? "/" : item_.path() + '/';
        return path == item_.path() || path.starts_with(inside);
    }

    /// The files that a document names lie anywhere; what bounds a worker is how many bytes it gets.
    std::optional<ImageFiles::Image> image(const Request& request) {
        if (!mayNameImages_ || request.text.find('\0') != std::string::npos) return std::nullopt;
        const std::int64_t wanted =
            std::min({request.maxBytes, MarkdownLimits::maxImageBytes, imageBytesLeft_});
        if (wanted < 0) return std::nullopt;
        auto found = images_.image(FileURL::standardized(request.text, FileURL::root()), wanted);
        if (found) imageBytesLeft_ -= static_cast<std::int64_t>(found->data->size());
        return found;
    }

    /// Rows of a listing, each of a type of its own.
    static constexpr int maxIcons = 4'096;

    const FileURL& item_;
    IconSource* icons_;
    bool mayNameImages_;
    LocalImageFiles images_;
    int iconsLeft_ = maxIcons;
    std::int64_t imageBytesLeft_ = MarkdownLimits::maxAttachedImageBytes;
};

/// None when the worker is gone, needs too long, or does not speak as workers do.
std::optional<PreviewDocument> converse(const MessageSocket& worker, const FileURL& url, IconSource* icons,
                                        Moment end) {
    const auto job = icons != nullptr ? PreviewWorker::Job::previewWithIcons : PreviewWorker::Job::preview;
    if (!worker.send(static_cast<char>(job) + url.path())) return std::nullopt;
    Answers answers(url, icons);
    while (std::chrono::steady_clock::now() < end) {
        auto message = worker.receive(WorkerMessages::maxMessageBytes);
        const auto request = message ? WorkerMessages::decodedRequest(*std::move(message)) : std::nullopt;
        if (!request) return std::nullopt;
        if (request->kind == Request::Kind::document) return WorkerMessages::decodedDocument(request->text);
        if (!worker.send(WorkerMessages::encodedAnswer(answers.to(*request)))) return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

PreviewDocument ConfinedPreview::document(const FileURL& url, IconSource* icons) const {
    const Moment end = std::chrono::steady_clock::now() + patience;
    Process process(program_);
    if (process.isRunning()) {
        const MessageSocket worker(process.socket(), patience);
        if (auto document = converse(worker, url, icons, end)) return *std::move(document);
    }
    return QuickPreview::failure(url, process.reason(std::chrono::steady_clock::now() >= end), icons);
}

std::string ConfinedPreview::confinement() const {
    constexpr std::size_t maxReportBytes = 4'096;
    const Process process(program_);
    if (!process.isRunning()) return {};
    const MessageSocket worker(process.socket(), patience);
    if (!worker.send(std::string(1, static_cast<char>(PreviewWorker::Job::reportConfinement)))) return {};
    return worker.receive(maxReportBytes).value_or(Data());
}

} // namespace quillmar
