// Draws pictures for the host: reads them one after the other from the socket that is its standard input, and
// answers each with a PNG, or with nothing.

#include "QuillmarIconRenderer/RenderedIcon.h"
#include "QuillmarQuickLook/Icons/IconFinder.h"
#include "QuillmarQuickLook/Icons/IconRenderer.h"
#include "QuillmarQuickLook/MessageSocket.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace quillmar;

namespace {

void limit(int resource, rlim_t value) {
    const rlimit both{.rlim_cur = value, .rlim_max = value};
    ::setrlimit(static_cast<__rlimit_resource>(resource), &both);
}

/// Of what a picture can ask for, beyond what drawing a large one takes.
void limitResources() {
    constexpr rlim_t memory = 536'870'912; // bytes of address space
    constexpr rlim_t seconds = 10;         // of processor time, for all pictures together
    limit(RLIMIT_AS, memory);
    limit(RLIMIT_CPU, seconds);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CORE, 0);
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

} // namespace

int main() {
    limitResources();
    const MessageSocket messages(STDIN_FILENO, MessageSocket::forever);
    while (const auto picture = messages.receive(IconRenderer::maxPictureBytes))
        if (!messages.send(renderedIcon(*picture, IconFinder::wantedSize).value_or(Data()))) break;
}
