#include "QuillmarQuickLook/Worker/ConfinedPreview.h"
#include "Tests/Faults/Samples.h"
#include "Tests/Faults/TracedProgram.h"
#include "Tests/Helpers/Pages.h"
#include "Tests/QuillmarQuickLook/Worker/Leftovers.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

/// What a worker does first of all.
constexpr std::string_view workerStarts = "prctl(PR_SET_PDEATHSIG";

/// Every system call of a worker fails once, and the page that its host then has.
class WorkerFaultTest : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_TRUE(hasNoChildren());
        EXPECT_EQ(openDescriptors(), descriptors_);
    }

    /// That every page of \p url is \p isHonest, which gets it and the one that is made without a fault; or it
    /// says that there is none.
    template <typename IsHonest>
    void expectPagesOrMessages(const FileURL& url, const IsHonest& isHonest) const {
        const std::string whole = pageOf(url, tracing(QUILLMAR_PROGRAM, log_));
        ASSERT_EQ(messageOf(whole), "") << "without a fault: strace must be there, and may trace";
        for (const Fault& fault : faultsBehind(log_, workerStarts)) {
            const std::string page = pageOf(url, failing(QUILLMAR_PROGRAM, log_, fault));
            const std::string name = fault.call + " " + fault.error + " " + std::to_string(fault.occurrence);
            const bool mayHaveStopped = fault.error == "ENOMEM" || fault.error == "ENOBUFS";
            EXPECT_TRUE(page == whole || !messageOf(page).empty() || isHonest(page, whole)) << name;
            EXPECT_TRUE(fault.error != "EINTR" || page == whole) << name;
            EXPECT_TRUE(mayHaveStopped || leftOpen(log_, workerStarts).empty()) << name;
        }
    }

    /// The same of memory, from so little that the program does not start to what is enough.
    void expectPagesOrMessagesWithLittleMemory(const FileURL& url) const {
        const std::string whole = pageOf(url, QUILLMAR_PROGRAM);
        ASSERT_EQ(messageOf(whole), "");
        constexpr int least = 30'000;
        constexpr int most = 100'000;
        bool wasEnough = false;
        for (int kibibytes = least; kibibytes <= most; kibibytes += 4'000) {
            const auto limited = tools_.path() / "limited";
            writeScript(limited, "sh -c 'ulimit -v " + std::to_string(kibibytes) + "; exec " +
                                     QUILLMAR_PROGRAM + " \"$1\"' sh");
            const std::string page = pageOf(url, limited.string());
            EXPECT_TRUE(page == whole || !messageOf(page).empty()) << url.path() << " " << kibibytes;
            wasEnough = page == whole;
        }
        EXPECT_TRUE(wasEnough) << url.path();
    }

    TemporaryFolder folder;

private:
    /// The page, with its attachments in the places of their names.
    std::string pageOf(const FileURL& url, const std::string& command) const {
        const auto script = tools_.path() / "worker";
        writeScript(script, command);
        PreviewDocument document = ConfinedPreview(script.string()).document(url, nullptr);
        for (const auto& [name, attachment] : document.attachments)
            if (const auto at = document.html.find(name); at != std::string::npos)
                document.html.replace(at, name.size(), *attachment.data);
        return std::move(document.html);
    }

    TemporaryFolder tools_;
    std::filesystem::path log_ = tools_.path() / "calls";
    std::size_t descriptors_ = openDescriptors();
};

bool never(std::string_view /*page*/, std::string_view /*whole*/) { return false; }

/// The archive's own size counts as none when the system does not tell it.
bool saysThatEntriesAreMissing(std::string_view page, std::string_view whole) {
    const auto listing = [](std::string_view html) {
        return between(html, "<div class=\"row heading\">", "</body>");
    };
    const bool hasAll = !listing(whole).empty() && listing(page) == listing(whole);
    return hasAll || page.find("The rest of the archive") != page.npos;
}

/// Each image stands where it belongs, or its text does.
bool hasEveryImageOrItsText(std::string_view page, std::string_view /*whole*/) {
    const auto has = [page](const Data& image, const std::string& text) {
        const bool isShown = page.find(Data(image).append("\" alt=\"").append(text)) != page.npos;
        return isShown || page.find(">" + text + "</span>") != page.npos;
    };
    return has(Samples::firstImage(), "first") && has(Samples::secondImage(), "second");
}

/// A listing of what can be asked, or of a part of it: what the system tells nothing of is left out.
bool listsWhatItCan(std::string_view page, std::string_view whole) {
    const auto rows = [](std::string_view html) {
        return occurrences(between(html, "<div class=\"hero\">", "</html>"), "class=\"row");
    };
    return rows(page) > 0 && rows(page) <= rows(whole);
}

TEST_F(WorkerFaultTest, textIsWholeOrAMessage) { expectPagesOrMessages(Samples::text(folder), never); }

TEST_F(WorkerFaultTest, markdownLacksImagesAtMost) {
    expectPagesOrMessages(Samples::markdown(folder), hasEveryImageOrItsText);
}

TEST_F(WorkerFaultTest, zipIsWholeOrSaysThatItIsNot) {
    expectPagesOrMessages(Samples::zip(folder), saysThatEntriesAreMissing);
}

TEST_F(WorkerFaultTest, tarGzipIsWholeOrSaysThatItIsNot) {
    expectPagesOrMessages(Samples::tarGzip(folder), saysThatEntriesAreMissing);
}

TEST_F(WorkerFaultTest, tarXzIsWholeOrSaysThatItIsNot) {
    expectPagesOrMessages(Samples::tarXz(folder), saysThatEntriesAreMissing);
}

TEST_F(WorkerFaultTest, folderListsWhatItCan) {
    expectPagesOrMessages(Samples::folderOfFiles(folder), listsWhatItCan);
}

TEST_F(WorkerFaultTest, littleMemoryIsEnoughOrAMessage) {
    for (const FileURL& url : {Samples::text(folder), Samples::markdown(folder), Samples::tarXz(folder)})
        expectPagesOrMessagesWithLittleMemory(url);
}

} // namespace
} // namespace quillmar
