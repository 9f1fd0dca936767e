// Draws pictures for the host: says with an empty message that it is ready, then reads one after the other from
// the socket that is its standard input, and answers each with a PNG, or with nothing.

#include "QuillmarIconRenderer/RenderedIcon.h"
#include "QuillmarQuickLook/Icons/IconFinder.h"
#include "QuillmarQuickLook/Icons/IconRenderer.h"
#include "QuillmarQuickLook/MessageSocket.h"
#include "QuillmarQuickLook/Worker/Confinement.h"

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

using namespace quillmar;

namespace {

/// Lets the libraries that draw load what they load late, while they can.
void warmUp() { renderedIcon(R"(<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>)", 1); }

} // namespace

int main() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody waits for the icons of a host that is gone
    warmUp();
    Confinement::confineTo(std::nullopt);
    const MessageSocket messages(STDIN_FILENO, MessageSocket::forever);
    bool isHeard = messages.send({}); // ready
    while (isHeard) {
        const auto picture = messages.receive(IconRenderer::maxPictureBytes);
        if (!picture) break;
        isHeard = messages.send(renderedIcon(*picture, IconFinder::wantedSize).value_or(Data()));
    }
    ::_exit(0); // without leave to look around, it ends without tidying up
}
