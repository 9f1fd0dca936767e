#include "QuillmarQuickLook/CommandLine.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace quillmar::CommandLine {
namespace {

struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

Outcome runWith(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "quillmar");
    std::vector<const char*> argv;
    for (const auto& argument : arguments) argv.push_back(argument.c_str());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const ExitStatus status = run(static_cast<int>(argv.size()), argv.data());
    return {static_cast<int>(status), testing::internal::GetCapturedStdout(),
            testing::internal::GetCapturedStderr()};
}

TEST(CommandLine, writesAPageToStandardOutput) {
    const TemporaryFolder folder;
    const auto outcome = runWith({"--no-icons", "--html", "-", folder.write("a.c", "x").path()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.output.starts_with("<!DOCTYPE html>"));
    EXPECT_EQ(outcome.errors, "");
}

TEST(CommandLine, writesAPageToAFile) {
    const TemporaryFolder folder;
    const auto page = folder.path() / "page.html";
    const auto outcome = runWith({folder.write("a.c", "x").path(), "--html", page.string()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(contentsOf(page).ends_with("</html>"));
}

TEST(CommandLine, writesAFolder) {
    const TemporaryFolder folder;
    const auto outcome =
        runWith({"--no-icons", "--output", (folder.path() / "out").string(), folder.write("a.c", "x").path()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "out/index.html"));
    EXPECT_EQ(contentsOf(folder.path() / "out/preview.json"),
              "{\"width\":900,\"height\":700,\"attachments\":{}}\n");
}

TEST(CommandLine, takesAMessagePageForAPage) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder.path() / "broken");
    const auto outcome = runWith({"--html", "-", folder.url("broken").path()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.output.find("There is no file named “broken”."), std::string::npos);
}

TEST(CommandLine, takesPathsOfAnyBytes) {
    const TemporaryFolder folder;
    EXPECT_EQ(runWith({"--html", "-", folder.write("a\n\xFF.c", "x").path()}).status, 0);
    EXPECT_EQ(runWith({"--html", "-", "--", folder.write("--html", "x").path()}).status, 0);
}

TEST(CommandLine, failsInOneLineWhenThePathDoesNotExist) {
    const auto outcome = runWith({"--html", "-", "/no/such\nfile"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "quillmar: “/no/such?file” does not exist\n");
    EXPECT_EQ(runWith({"--html", "-", ""}).status, 1);
}

TEST(CommandLine, failsInOneLineWhenTheOutputCannotBeWritten) {
    const TemporaryFolder folder;
    const auto outcome = runWith({"--html", "/dev/full", folder.write("a.c", "x").path()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "quillmar: cannot write to “/dev/full”: No space left on device\n");
}

TEST(CommandLine, refusesWrongUsage) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.c", "x").path();
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {},
             {"--html", "-"},
             {"--html"},
             {"--html", "", path},
             {"--no-such-option", "--html", "-", path},
             {"--html", "-", "--output", "x", path},
             {"--html", "-", path, path},
         }) {
        const auto outcome = runWith(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.output, "");
        EXPECT_TRUE(outcome.errors.starts_with("quillmar: ")) << outcome.errors;
        EXPECT_EQ(outcome.errors.find('\n'), outcome.errors.size() - 1) << outcome.errors;
    }
}

TEST(CommandLine, saysWhatToDoWithoutADisplay) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.c", "x").path();
    const ScopedEnvironment environment{{"DISPLAY", std::nullopt}, {"WAYLAND_DISPLAY", ""}};
    for (const auto& arguments : std::vector<std::vector<std::string>>{{path}, {path, path}}) {
        const auto outcome = runWith(arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_NE(outcome.errors.find("no display"), std::string::npos) << outcome.errors;
        EXPECT_NE(outcome.errors.find("--html FILE"), std::string::npos) << outcome.errors;
    }
}

TEST(CommandLine, saysWhichOfSeveralItemsDoesNotExist) {
    const TemporaryFolder folder;
    const std::string missing = folder.path() / "missing";
    const auto outcome = runWith({folder.write("a.c", "x").path(), missing});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "quillmar: “" + missing + "” does not exist\n");
}

TEST(CommandLine, takesThePreviewersRoleAndGivesItBack) {
    const TemporaryFolder folder;
    const ScopedEnvironment environment{{"XDG_DATA_HOME", folder.path().string()}};
    const auto service = folder.path() / "dbus-1/services/org.gnome.NautilusPreviewer.service";
    const auto given = runWith({"--uninstall-preview"});
    EXPECT_EQ(given.status, 0);
    const auto taken = runWith({"--install-preview"});
    if (taken.status == 0) { // the viewer is built where GTK and WebKit are
        EXPECT_TRUE(contentsOf(service).find("QuillmarViewer\" --service") != std::string::npos ||
                    contentsOf(service).find("QuillmarViewer --service") != std::string::npos)
            << contentsOf(service);
        EXPECT_NE(taken.output.find(service.string()), std::string::npos);
        EXPECT_EQ(runWith({"--uninstall-preview"}).status, 0);
    } else {
        EXPECT_NE(taken.errors.find("is not installed"), std::string::npos) << taken.errors;
    }
    EXPECT_FALSE(std::filesystem::exists(service));
}

TEST(CommandLine, explainsItself) {
    const auto help = runWith({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option : {"--output DIR", "--html FILE", "--no-icons", "--version", "PATH"})
        EXPECT_NE(help.output.find(option), std::string::npos) << option;
    const auto version = runWith({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.output.starts_with("Quillmar "));
}

} // namespace
} // namespace quillmar::CommandLine
