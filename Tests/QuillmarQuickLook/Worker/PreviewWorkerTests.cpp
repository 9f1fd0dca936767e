#include "QuillmarQuickLook/Worker/PreviewWorker.h"

#include "QuillmarQuickLook/MessageSocket.h"
#include "QuillmarQuickLook/Worker/WorkerMessages.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <array>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmar {
namespace {

using WorkerMessages::Request;

/// A real worker in a child of this process, to which the test is the host. It is to preview no folders:
/// threads that measure them do not outlive a fork.
class Worker {
public:
    Worker() {
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_.data()) != 0) std::abort();
        process_ = ::fork();
        if (process_ != 0) {
            ::close(ends_[1]);
            return;
        }
        ::close(ends_[0]);
        ::dup2(ends_[1], PreviewWorker::socketDescriptor);
        ::close(ends_[1]);
        ::_exit(PreviewWorker::run());
    }
    ~Worker() {
        hangUp();
        if (process_ > 0) ::kill(process_, SIGKILL);
        if (process_ > 0) ::waitpid(process_, nullptr, 0);
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void send(const std::string& message) const { ASSERT_TRUE(socket().send(message)); }

    std::optional<Request> request() const {
        const auto message = socket().receive(WorkerMessages::maxMessageBytes);
        return message ? WorkerMessages::decodedRequest(*message) : std::nullopt;
    }

    std::optional<PreviewDocument> document() const {
        const auto last = request();
        if (!last || last->kind != Request::Kind::document) return std::nullopt;
        auto html = socket().receive(WorkerMessages::maxMessageBytes);
        return html ? WorkerMessages::decodedDocument(last->text, *std::move(html)) : std::nullopt;
    }

    void hangUp() {
        if (ends_[0] >= 0) ::close(ends_[0]);
        ends_[0] = -1;
    }

    /// The status with which it exits; none when it is killed.
    std::optional<int> exitStatus() {
        int status = 0;
        ::waitpid(process_, &status, 0);
        process_ = -1;
        return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
    }

private:
    MessageSocket socket() const { return {ends_[0], std::chrono::minutes(1)}; }

    std::array<int, 2> ends_{-1, -1};
    pid_t process_ = -1;
};

TEST(PreviewWorker, makesADocumentAndEnds) {
    const TemporaryFolder folder;
    Worker worker;
    worker.send("0" + folder.write("a.c", "int a;").path());
    const auto document = worker.document();
    ASSERT_TRUE(document);
    EXPECT_NE(document->html.find("int a;"), std::string::npos);
    EXPECT_EQ(worker.exitStatus(), 0);
}

TEST(PreviewWorker, asksForIconsOnlyWhenTheHostHasSome) {
    const TemporaryFolder folder;
    const Worker worker;
    worker.send("1" + folder.write("a.c", "x").path());
    const auto request = worker.request();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, Request::Kind::typeIcon);
    EXPECT_EQ(request->text, "public.c-source");
    worker.send(WorkerMessages::encodedAnswer(
        ImageFiles::Image{.data = std::make_shared<const Data>("pixels"), .typeIdentifier = "public.png"}));
    const auto document = worker.document();
    ASSERT_TRUE(document);
    EXPECT_EQ(*document->attachments.at("asset-0").data, "pixels");
}

TEST(PreviewWorker, asksForTheIconOfAnItem) {
    const TemporaryFolder folder;
    const Worker worker;
    const std::string path = folder.write("a.zip", "PK\3\4").path(); // damaged
    worker.send("1" + path);
    const auto request = worker.request();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, Request::Kind::fileIcon);
    EXPECT_EQ(request->text, path);
}

TEST(PreviewWorker, asksForTheImagesOfADocument) {
    const TemporaryFolder folder;
    const Worker worker;
    const FileURL image = folder.write("plan.png", "pixels");
    worker.send("0" + folder.write("a.md", "![a](plan.png)").path());
    const auto request = worker.request();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, Request::Kind::image);
    EXPECT_EQ(request->text, image.path());
    EXPECT_EQ(request->maxBytes, 8'388'608);
    worker.send(WorkerMessages::encodedAnswer(
        ImageFiles::Image{.data = std::make_shared<const Data>("others"), .typeIdentifier = "public.gif"}));
    const auto document = worker.document();
    ASSERT_TRUE(document);
    EXPECT_EQ(*document->attachments.at("asset-0").data, "others");
    EXPECT_EQ(document->attachments.at("asset-0").typeIdentifier, "public.gif");
}

TEST(PreviewWorker, doesNotAskForImagesThatThereAreNot) {
    const TemporaryFolder folder;
    const Worker worker;
    folder.write("large.png", "");
    std::filesystem::resize_file(folder.path() / "large.png", 8'388'609);
    worker.send("0" + folder.write("a.md", "![a](gone.png) ![b](large.png) ![c](.)").path());
    EXPECT_TRUE(worker.document());
}

TEST(PreviewWorker, doesWithoutWhatItGetsNoSenseOf) {
    const TemporaryFolder folder;
    for (const char* answer : {"", "x", "nothing that has this form"}) {
        const Worker worker;
        worker.send("1" + folder.write("a.c", "int a;").path());
        ASSERT_TRUE(worker.request());
        worker.send(answer);
        const auto document = worker.document();
        ASSERT_TRUE(document);
        EXPECT_TRUE(document->attachments.empty());
    }
}

TEST(PreviewWorker, failsWhenItIsGivenNoItem) {
    Worker worker;
    worker.hangUp();
    EXPECT_EQ(worker.exitStatus(), 1);
    Worker other;
    other.send("");
    EXPECT_EQ(other.exitStatus(), 1);
}

TEST(PreviewWorker, failsWhenTheHostHasGone) {
    const TemporaryFolder folder;
    const FileURL url = folder.write("a.c", "x");
    Worker worker;
    worker.send("1" + url.path());
    ASSERT_TRUE(worker.request());
    worker.hangUp();
    EXPECT_EQ(worker.exitStatus(), 1);
}

} // namespace
} // namespace quillmar
