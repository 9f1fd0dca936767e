#include "QuillmarQuickLook/Worker/ConfinedPreview.h"

#include "QuickPreview.h"
#include "QuillmarQuickLook/ChildProcess.h"
#include "QuillmarQuickLook/MessageSocket.h"
#include "QuillmarQuickLook/Worker/HostAnswers.h"
#include "QuillmarQuickLook/Worker/PreviewWorker.h"
#include "QuillmarQuickLook/Worker/WorkerEnvironment.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"

#include <algorithm>
#include <csignal>
#include <sys/socket.h>
#include <sys/wait.h>
#include <utility>

namespace quillmar {
namespace {

using Moment = std::chrono::steady_clock::time_point;

/// To the worker, with the patience that is left until \p end.
MessageSocket messages(const ChildProcess& worker, Moment end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    return {worker.socket(), std::max(left, std::chrono::milliseconds::zero())};
}

/// None when the worker is gone, needs too long, or does not speak as workers do.
std::optional<PreviewDocument> converse(const ChildProcess& worker, const FileURL& url, IconSource* icons,
                                        Moment end) {
    using WorkerMessages::Request;
    const auto job = icons != nullptr ? PreviewWorker::Job::previewWithIcons : PreviewWorker::Job::preview;
    if (!messages(worker, end).send(static_cast<char>(job) + url.path())) return std::nullopt;
    HostAnswers answers(url, icons);
    for (;;) {
        auto message = messages(worker, end).receive(WorkerMessages::maxMessageBytes);
        const auto request = message ? WorkerMessages::decodedRequest(*std::move(message)) : std::nullopt;
        if (!request) return std::nullopt;
        if (request->kind == Request::Kind::document) {
            auto html = messages(worker, end).receive(WorkerMessages::maxMessageBytes);
            if (!html) return std::nullopt;
            return WorkerMessages::decodedDocument(request->text, *std::move(html));
        }
        const std::string answer = WorkerMessages::encodedAnswer(answers.to(*request));
        if (!messages(worker, end).send(answer)) return std::nullopt;
    }
}

/// Why \p worker has given no answer, for the user. Ends it.
std::string_view reason(ChildProcess& worker, bool isLate) {
    if (!worker.isRunning()) return "No program could be started that reads it.";
    const int status = worker.end();
    const bool ranOutOfTime = WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU;
    return isLate || ranOutOfTime ? "Reading it took too long and was stopped."
                                  : "The program that reads it has stopped unexpectedly.";
}

} // namespace

PreviewDocument ConfinedPreview::document(const FileURL& url, IconSource* icons, std::stop_token stop) const {
    const Moment end = std::chrono::steady_clock::now() + patience;
    ChildProcess worker(program_, PreviewWorker::argument, WorkerEnvironment::variables());
    // What waits for the worker then finds it gone.
    const std::stop_callback hangUp(std::move(stop), [&worker] { ::shutdown(worker.socket(), SHUT_RDWR); });
    if (worker.isRunning())
        if (auto document = converse(worker, url, icons, end)) return *std::move(document);
    const bool isLate = std::chrono::steady_clock::now() >= end;
    return QuickPreview::failure(url, reason(worker, isLate), icons);
}

std::string ConfinedPreview::confinement() const {
    constexpr std::size_t maxReportBytes = 4'096;
    const Moment end = std::chrono::steady_clock::now() + patience;
    const ChildProcess worker(program_, PreviewWorker::argument, WorkerEnvironment::variables());
    if (!worker.isRunning()) return {};
    const std::string job(1, static_cast<char>(PreviewWorker::Job::reportConfinement));
    if (!messages(worker, end).send(job)) return {};
    return messages(worker, end).receive(maxReportBytes).value_or(Data());
}

} // namespace quillmar
