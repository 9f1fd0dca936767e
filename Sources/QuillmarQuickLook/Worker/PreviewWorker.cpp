#include "QuillmarQuickLook/Worker/PreviewWorker.h"

#include "Platform/DateFormat.h"
#include "Platform/IntegerFormat.h"
#include "QuickPreview.h"
#include "QuillmarQuickLook/MessageSocket.h"
#include "QuillmarQuickLook/Worker/Confinement.h"
#include "QuillmarQuickLook/Worker/HostItems.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"

#include <climits>
#include <csignal>
#include <sys/prctl.h>

namespace quillmar::PreviewWorker {
namespace {

/// Bytes of a path and what is wanted of it. The system refuses shorter ones, but that is for the page to say.
constexpr std::size_t maxJobBytes = 1'048'576;

/// Lets libraries read what they need of the user's zone and locale while they can.
void openLocale() {
    static_cast<void>(formattedDate(0));
    static_cast<void>(formattedInteger(INT_MAX));
}

std::string described(const Confinement::InForce& inForce) {
    const auto line = [](std::string_view name, bool isInForce) {
        return std::string(name).append(isInForce ? ": in force\n" : ": not to be had here\n");
    };
    return line("resource limits", inForce.resourceLimits) + line("Landlock", inForce.landlock) +
           line("system call filter", inForce.seccomp);
}

} // namespace

int run() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody waits for the page of a host that is gone
    const MessageSocket host(socketDescriptor, MessageSocket::forever);
    const auto job = host.receive(maxJobBytes);
    if (!job || job->empty()) return 1;
    const Job kind{job->front()};
    if (kind == Job::reportConfinement)
        return host.send(described(Confinement::confineTo(std::nullopt))) ? 0 : 1;
    const FileURL url = FileURL::standardized(std::string_view(*job).substr(1), FileURL::root());
    openLocale();
    Confinement::confineTo(url);

    HostIcons icons(host);
    HostImages images(host);
    const PreviewDocument document =
        QuickPreview::document(url, kind == Job::previewWithIcons ? &icons : nullptr, &images);
    using WorkerMessages::Request;
    const Request done{
        .kind = Request::Kind::document, .maxBytes = 0, .text = WorkerMessages::encoded(document)};
    return host.send(WorkerMessages::encoded(done)) && host.send(document.html) ? 0 : 1;
}

} // namespace quillmar::PreviewWorker
