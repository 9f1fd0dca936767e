#include "Tests/QuillmarQuickLook/Worker/MisbehavingWorker.h"

#include "QuillmarQuickLook/MessageSocket.h"
#include "QuillmarQuickLook/Worker/Confinement.h"
#include "QuillmarQuickLook/Worker/PreviewWorker.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"

#include <atomic>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <limits>
#include <map>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quillmar::MisbehavingWorker {
namespace {

using WorkerMessages::Request;

/// The other side, and what a worker has been told by it.
class Host {
public:
    Host() : job_(socket_.receive(PATH_MAX + 1).value_or("0")) {}

    std::string path() const { return job_.substr(1); }
    FileURL item() const { return FileURL::standardized(path(), FileURL::root()); }

    void sendRaw(const std::string& bytes) const {
        static_cast<void>(::send(PreviewWorker::socketDescriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL));
    }
    void send(const std::string& message) const { static_cast<void>(socket_.send(message)); }

    /// A message's length alone; nothing follows.
    void announce(std::uint32_t length) const {
        sendRaw(std::string(reinterpret_cast<const char*>(&length), sizeof length));
    }

    /// The bytes of the host's answer; none when it gives nothing.
    std::optional<Data> ask(Request::Kind kind, const std::string& text, std::int64_t maxBytes = 0) const {
        send(WorkerMessages::encoded(Request{.kind = kind, .maxBytes = maxBytes, .text = text}));
        const auto answer = socket_.receive(WorkerMessages::maxMessageBytes);
        const auto image = answer ? WorkerMessages::decodedAnswer(*answer) : std::nullopt;
        return image ? std::optional(*image->data) : std::nullopt;
    }

    std::string form(const PreviewDocument& document) const {
        return WorkerMessages::encoded(
            Request{.kind = Request::Kind::document, .maxBytes = 0, .text = WorkerMessages::encoded(document)});
    }

    void finish(const std::string& html) const { finish(page(html)); }
    void finish(const PreviewDocument& document) const {
        send(form(document));
        send(document.html);
    }

    static PreviewDocument page(const std::string& html) {
        return {.html = html, .attachments = {}, .width = 100, .height = 100};
    }

private:
    MessageSocket socket_{PreviewWorker::socketDescriptor, MessageSocket::forever};
    std::string job_;
};

void sendAttachmentCalled(const Host& host, const std::string& name) {
    PreviewDocument document = Host::page("page");
    document.attachments[name] = {.data = std::make_shared<const Data>("x"), .typeIdentifier = "public.png"};
    host.finish(document);
}

void askForIconsOfOthers(const Host& host) {
    const std::string item = host.path();
    std::string answers;
    for (const std::string& path :
         {std::string("/etc/passwd"), std::string("/"), std::string(), item + "x", item + std::string("\0", 1),
          item.substr(2), item.substr(0, item.rfind('/')), item + "/../other", item + "/./../../other"})
        answers += host.ask(Request::Kind::fileIcon, path).value_or("-") + ';';
    host.finish(answers);
}

void askForIconsWithin(const Host& host) {
    std::string answers;
    for (const std::string& path : {host.path(), host.path() + "/a", host.path() + "/a/b"})
        answers += host.ask(Request::Kind::fileIcon, path).value_or("-") + ';';
    host.finish(answers);
}

void countIcons(const Host& host) {
    constexpr int questions = 10'000;
    int answers = 0;
    for (int i = 0; i < questions; ++i) answers += host.ask(Request::Kind::typeIcon, "public.data") ? 1 : 0;
    host.finish(std::to_string(answers));
}

/// Of the item itself, as often as no document may have it.
void countImages(const Host& host) {
    constexpr int questions = 40;
    int answers = 0;
    for (int i = 0; i < questions; ++i) answers += host.ask(Request::Kind::image, host.path(), INT_MAX) ? 1 : 0;
    host.finish(std::to_string(answers));
}

void askForImagesOfOddSizes(const Host& host) {
    std::string answers;
    for (const std::int64_t size : {std::int64_t{-1}, std::numeric_limits<std::int64_t>::min(), std::int64_t{0},
                                    std::int64_t{3}, std::int64_t{4}, std::numeric_limits<std::int64_t>::max()})
        answers += host.ask(Request::Kind::image, host.path(), size).value_or("-") + ';';
    host.finish(answers);
}

void askForOddImages(const Host& host) {
    std::string answers;
    for (const std::string& path :
         {std::string(), std::string("/"), std::string("/dev/zero"), std::string("\0", 1),
          host.path() + std::string("\0", 1), std::string(1'000'000, '/'), std::string(100'000, 'x')})
        answers += host.ask(Request::Kind::image, path, INT_MAX).value_or("-") + ';';
    host.finish(answers);
}

void dieWithinADocument(const Host& host) {
    const std::string html(100'000, 'x');
    host.send(host.form(Host::page(html)));
    host.announce(static_cast<std::uint32_t>(html.size()));
    host.sendRaw(html.substr(0, html.size() / 2));
    ::raise(SIGKILL);
}

/// Takes address space, not memory: more than a worker has.
void takeMuchMemory(const Host& host) {
    Confinement::confineTo(host.item());
    constexpr std::size_t bytes = 3'221'225'472;
    void* memory = ::mmap(nullptr, bytes, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) std::abort();
    host.finish("enough memory");
}

/// A second of it, which is less than a real worker has.
void takeMuchProcessorTime(const Host& host) {
    rlimit limits{};
    ::getrlimit(RLIMIT_CPU, &limits);
    limits.rlim_cur = 1;
    ::setrlimit(RLIMIT_CPU, &limits);
    Confinement::confineTo(host.item());
    for (std::atomic<unsigned> turns = 0;;) ++turns;
}

using Conduct = std::function<void(const Host&)>;

const std::map<std::string, Conduct> conducts{
    {"says nothing", [](const Host&) {}},
    {"fails", [](const Host&) { ::_exit(1); }},
    {"crashes", [](const Host&) { ::raise(SIGKILL); }},
    {"says garbage", [](const Host& host) { host.sendRaw("\x05\0\0\0abcdefghijklmnopqrstuvwxyz"); }},
    {"says an empty message", [](const Host& host) { host.announce(0); }},
    {"announces four gigabytes", [](const Host& host) { host.announce(UINT32_MAX); }},
    {"announces too much",
     [](const Host& host) { host.announce(static_cast<std::uint32_t>(WorkerMessages::maxMessageBytes) + 1); }},
    {"announces much", [](const Host& host) { host.announce(WorkerMessages::maxMessageBytes); }},
    {"asks what there is not", [](const Host& host) { host.send("\x09" + std::string(15, '\0')); }},
    {"sends half a document",
     [](const Host& host) {
         const std::string form = host.form(Host::page("page"));
         host.send(form.substr(0, form.size() - 1));
         host.send("page");
     }},
    {"sends a document without its page", [](const Host& host) { host.send(host.form(Host::page("page"))); }},
    {"sends a document", [](const Host& host) { host.finish("page"); }},
    {"climbs out", [](const Host& host) { sendAttachmentCalled(host, "../../x"); }},
    {"names its page", [](const Host& host) { sendAttachmentCalled(host, "index.html"); }},
    {"names an attachment", [](const Host& host) { sendAttachmentCalled(host, "asset-0"); }},
    {"asks for icons of others", askForIconsOfOthers},
    {"asks for icons within", askForIconsWithin},
    {"counts icons", countIcons},
    {"counts images", countImages},
    {"asks for images of odd sizes", askForImagesOfOddSizes},
    {"asks for odd images", askForOddImages},
    {"dies within a document", dieWithinADocument},
    {"takes much memory", takeMuchMemory},
    {"takes much processor time", takeMuchProcessorTime},
};

} // namespace

std::optional<std::string> wantedConduct() {
    const char* conduct = std::getenv(variable);
    return conduct != nullptr ? std::optional<std::string>(conduct) : std::nullopt;
}

int run(const std::string& conduct) {
    const Host host;
    conducts.at(conduct)(host);
    return 0;
}

} // namespace quillmar::MisbehavingWorker
