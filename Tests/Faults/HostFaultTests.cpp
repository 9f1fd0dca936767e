#include "Tests/Faults/Samples.h"
#include "Tests/Faults/TracedProgram.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pages.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace quillmar {
namespace {

/// What the command does first of all.
constexpr std::string_view commandStarts = "rt_sigaction(SIGPIPE, {sa_handler=SIG_IGN";

/// Every system call of the command fails once: what it then writes and answers.
class HostFaultTest : public testing::Test {
protected:
    // Whatever the command leaves running becomes a child of this process.
    HostFaultTest() { ::prctl(PR_SET_CHILD_SUBREAPER, 1); }

    /// A page and 0, or a sentence and 1.
    void expectPagesOrErrors(const FileURL& url) const {
        ASSERT_EQ(statusOf(url, tracing(QUILLMAR_PROGRAM, log_)), 0) << contentsOf(errors_);
        ASSERT_EQ(messageOf(contentsOf(page_)), "");
        for (const Fault& fault : faultsBehind(log_, commandStarts)) {
            const int status = statusOf(url, failing(QUILLMAR_PROGRAM, log_, fault));
            const Data page = contentsOf(page_);
            const Data errors = contentsOf(errors_);
            const std::string name = fault.call + " " + fault.error + " " + std::to_string(fault.occurrence);
            if (status == 0) {
                EXPECT_TRUE(page.find("</html>") != page.npos && errors.empty()) << name << "\n" << errors;
            } else {
                EXPECT_EQ(status, 1) << name << "\n" << errors;
                EXPECT_TRUE(errors.starts_with("quillmar: ") && occurrences(errors, "\n") == 1) << name << "\n"
                                                                                                << errors;
            }
        }
    }

    void TearDown() override {
        // A worker goes with its host, though it may take a moment. One that stays is stopped by the test's
        // limit.
        while (::wait(nullptr) > 0) continue;
        ::prctl(PR_SET_CHILD_SUBREAPER, 0);
    }

    TemporaryFolder folder;

private:
    int statusOf(const FileURL& url, const std::string& command) const {
        const auto script = tools_.path() / "command";
        writeScript(script, command + " --html -");
        const std::string line =
            script.string() + " " + url.path() + " >" + page_.string() + " 2>" + errors_.string();
        const int status = std::system(line.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    TemporaryFolder tools_;
    std::filesystem::path log_ = tools_.path() / "calls";
    std::filesystem::path page_ = tools_.path() / "page";
    std::filesystem::path errors_ = tools_.path() / "errors";
    ScopedEnvironment home_{{"HOME", tools_.path().string()},
                            {"XDG_CACHE_HOME", (tools_.path() / "cache").string()},
                            {"XDG_CONFIG_HOME", std::nullopt},
                            {"XDG_DATA_HOME", std::nullopt}};
};

TEST_F(HostFaultTest, markdownIsAPageOrAnError) { expectPagesOrErrors(Samples::markdown(folder)); }

TEST_F(HostFaultTest, folderWithIconsIsAPageOrAnError) { expectPagesOrErrors(Samples::folderOfFiles(folder)); }

} // namespace
} // namespace quillmar
