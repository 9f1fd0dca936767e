#include "QuillmarQuickLook/FileManagers/PreviewRole.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <vector>

namespace quillmar {
namespace {

namespace fs = std::filesystem;

/// Empty when there is no such file.
Data read(const fs::path& path) { return contentsOf(path); }

void write(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << text;
}

/// Names of all that is in \p folder, and what the files hold.
std::map<std::string, Data> filesIn(const fs::path& folder) {
    std::map<std::string, Data> files;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error))
        files.emplace(entry.path().filename(), entry.is_regular_file() ? read(entry.path()) : Data());
    return files;
}

std::string joined(const PreviewRole::Report& report) {
    std::string lines;
    for (const std::string& line : report.lines) lines += line + '\n';
    return lines;
}

bool mentions(const PreviewRole::Report& report, const std::string& text) {
    return joined(report).find(text) != std::string::npos;
}

/// True for an error whose last line holds \p text and ends as a sentence.
bool failedSaying(const PreviewRole::Report& report, const std::string& text) {
    return !report.succeeded && !report.lines.empty() && report.lines.back().find(text) != std::string::npos &&
           report.lines.back().ends_with('.');
}

constexpr const char* anothers = "[D-BUS Service]\nName=org.gnome.NautilusPreviewer\nExec=/opt/other\n";

struct PreviewRoleTest : testing::Test {
    PreviewRoleTest() { makeProgram(places.viewer); }

    void makeProgram(const std::string& path) const {
        write(path, "#!/bin/sh\n");
        fs::permissions(path, fs::perms::owner_all);
    }
    PreviewRole::Report install() const { return PreviewRole::install(places); }
    PreviewRole::Report uninstall() const { return PreviewRole::uninstall(places); }
    /// The line of the service file that names the program, with its line feed.
    std::string execLine() const {
        const Data text = read(nautilus);
        return std::string(text.substr(std::min(text.find("Exec="), text.size())));
    }

    TemporaryFolder folder;
    std::string root = folder.path().string();
    PreviewRole::Places places{.dataFolder = root + "/data", .viewer = root + "/bin/QuillmarViewer"};
    fs::path services = folder.path() / "data/dbus-1/services";
    fs::path nautilus = services / "org.gnome.NautilusPreviewer.service";
    fs::path nemo = services / "org.nemo.Preview.service";
    fs::path kept = services / "org.gnome.NautilusPreviewer.service.before-quillmar";
};

TEST_F(PreviewRoleTest, writesAServiceFileForEachName) {
    EXPECT_TRUE(install().succeeded);
    const std::string mark = "# Written by Quillmar. \"quillmar --uninstall-preview\" removes it.\n";
    const std::string exec = "Exec=" + places.viewer + " --service\n";
    EXPECT_EQ(filesIn(services),
              (std::map<std::string, Data>{
                  {"org.gnome.NautilusPreviewer.service",
                   mark + "[D-BUS Service]\nName=org.gnome.NautilusPreviewer\n" + exec},
                  {"org.nemo.Preview.service", mark + "[D-BUS Service]\nName=org.nemo.Preview\n" + exec}}));
}

TEST_F(PreviewRoleTest, saysWhatItHasWrittenAndWhenItTakesEffect) {
    const auto report = install();
    ASSERT_EQ(report.lines.size(), 3U);
    EXPECT_EQ(report.lines[0], "Wrote “" + nautilus.string() + "”.");
    EXPECT_EQ(report.lines[1], "Wrote “" + nemo.string() + "”.");
    EXPECT_TRUE(report.lines[2].starts_with("File managers use it from the next preview on."))
        << report.lines[2];
}

TEST_F(PreviewRoleTest, makesFoldersForTheUserAlone) {
    ASSERT_TRUE(install().succeeded);
    for (const fs::path& path : {folder.path() / "data", folder.path() / "data/dbus-1", services})
        EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all) << path;
}

TEST_F(PreviewRoleTest, leavesOtherServicesAlone) {
    write(services / "org.example.Other.service", "other");
    ASSERT_TRUE(install().succeeded);
    ASSERT_TRUE(uninstall().succeeded);
    EXPECT_EQ(filesIn(services), (std::map<std::string, Data>{{"org.example.Other.service", "other"}}));
}

TEST_F(PreviewRoleTest, changesNothingTheSecondTime) {
    ASSERT_TRUE(install().succeeded);
    const auto before = filesIn(services);
    const auto report = install();
    EXPECT_TRUE(report.succeeded);
    EXPECT_TRUE(mentions(report, "“" + nautilus.string() + "” is there already.")) << joined(report);
    EXPECT_EQ(filesIn(services), before);
}

TEST_F(PreviewRoleTest, namesTheProgramAnewWhenItHasMoved) {
    ASSERT_TRUE(install().succeeded);
    places.viewer = root + "/elsewhere";
    makeProgram(places.viewer);
    EXPECT_TRUE(install().succeeded);
    EXPECT_EQ(execLine(), "Exec=" + root + "/elsewhere --service\n");
    EXPECT_EQ(filesIn(services).size(), 2U);
}

TEST_F(PreviewRoleTest, quotesThePathAsTheBusReadsIt) {
    const std::vector<std::pair<std::string, std::string>> programs{
        {"/a b", "'ROOT/a b'"},
        {"/it's", "'ROOT/it'\"'\"'s'"},
        {"/$HOME `x` \"y\" ;#&", "'ROOT/$HOME `x` \"y\" ;#&'"},
        {"/back\\slash", "'ROOT/back\\\\slash'"},
        {"/~", "'ROOT/~'"},
        {"/ü", "'ROOT/ü'"},
    };
    for (const auto& [name, expected] : programs) {
        places.viewer = root + name;
        makeProgram(places.viewer);
        EXPECT_TRUE(install().succeeded) << name;
        std::string word = expected;
        EXPECT_EQ(execLine(), "Exec=" + word.replace(1, 4, root) + " --service\n");
    }
}

TEST_F(PreviewRoleTest, refusesAPathThatTheBusCannotRead) {
    for (const char* name : {"/new\nline", "/tab\t", "/\x7F", "/latin \xFC"}) {
        places.viewer = root + name;
        makeProgram(places.viewer);
        const auto report = install();
        EXPECT_TRUE(failedSaying(report, "cannot read the path")) << joined(report);
    }
    EXPECT_FALSE(fs::exists(services));
}

TEST_F(PreviewRoleTest, refusesWhatIsNoProgram) {
    write(folder.path() / "text", "text");
    for (const char* name : {"/missing", "/text", "/bin"}) {
        places.viewer = root + name;
        const auto report = install();
        EXPECT_TRUE(failedSaying(report, "“" + places.viewer + "” is no program")) << joined(report);
    }
    places.viewer = "bin/QuillmarViewer";
    EXPECT_TRUE(failedSaying(install(), "is no program"));
    EXPECT_FALSE(fs::exists(services));
}

TEST_F(PreviewRoleTest, saysThatTheViewerIsNotInstalled) {
    places.viewer.clear();
    const auto report = install();
    EXPECT_TRUE(failedSaying(report, "QuillmarViewer, is not installed. Install it")) << joined(report);
}

TEST_F(PreviewRoleTest, saysThatThereIsNoDataFolder) {
    for (const char* path : {"", "relative/data"}) {
        places.dataFolder = path;
        EXPECT_TRUE(failedSaying(install(), "set HOME"));
        EXPECT_TRUE(failedSaying(uninstall(), "set HOME"));
    }
}

TEST_F(PreviewRoleTest, keepsTheFileOfAnotherProgramBesideIt) {
    write(nautilus, anothers);
    const auto report = install();
    EXPECT_TRUE(report.succeeded);
    EXPECT_EQ(read(kept), anothers);
    EXPECT_TRUE(read(nautilus).starts_with("# Written by Quillmar."));
    EXPECT_TRUE(mentions(report, "is kept as “" + kept.string() + "”.")) << joined(report);
}

TEST_F(PreviewRoleTest, putsTheFileOfAnotherProgramBack) {
    write(nautilus, anothers);
    install();
    install();
    const auto report = uninstall();
    EXPECT_TRUE(report.succeeded);
    EXPECT_EQ(filesIn(services),
              (std::map<std::string, Data>{{"org.gnome.NautilusPreviewer.service", anothers}}));
    EXPECT_TRUE(mentions(report, "Put back “" + nautilus.string() + "”")) << joined(report);
}

TEST_F(PreviewRoleTest, losesNoFileWhenOneIsKeptAlready) {
    write(nautilus, anothers);
    write(kept, "older");
    const auto report = install();
    EXPECT_TRUE(failedSaying(report, kept.string())) << joined(report);
    EXPECT_EQ(read(nautilus), anothers);
    EXPECT_EQ(read(kept), "older");
}

TEST_F(PreviewRoleTest, removesItsFiles) {
    install();
    const auto report = uninstall();
    EXPECT_TRUE(report.succeeded);
    EXPECT_EQ(filesIn(services), (std::map<std::string, Data>()));
    ASSERT_EQ(report.lines.size(), 3U);
    EXPECT_EQ(report.lines[0], "Removed “" + nautilus.string() + "”.");
    EXPECT_EQ(report.lines[1], "Removed “" + nemo.string() + "”.");
    EXPECT_NE(report.lines[2].find("from the next preview on"), std::string::npos) << report.lines[2];
}

TEST_F(PreviewRoleTest, leavesTheFileOfAnotherProgramWhereItIs) {
    install();
    write(nautilus, anothers);
    const auto report = uninstall();
    EXPECT_TRUE(report.succeeded);
    EXPECT_EQ(filesIn(services),
              (std::map<std::string, Data>{{"org.gnome.NautilusPreviewer.service", anothers}}));
    EXPECT_TRUE(mentions(report, "“" + nautilus.string() + "” is another program's and stays."))
        << joined(report);
}

TEST_F(PreviewRoleTest, removesNothingTwice) {
    install();
    uninstall();
    const auto report = uninstall();
    EXPECT_TRUE(report.succeeded);
    EXPECT_TRUE(mentions(report, "“" + nautilus.string() + "” is not there.")) << joined(report);
}

TEST_F(PreviewRoleTest, makesNoFoldersToRemoveFrom) {
    const auto report = uninstall();
    EXPECT_TRUE(report.succeeded);
    EXPECT_FALSE(fs::exists(places.dataFolder));
    EXPECT_TRUE(mentions(report, "There are no service files in “" + places.dataFolder + "”."))
        << joined(report);
}

TEST_F(PreviewRoleTest, putsBackWhatAnInterruptedRemovalHasLeft) {
    write(kept, anothers);
    EXPECT_TRUE(uninstall().succeeded);
    EXPECT_EQ(read(nautilus), anothers);
    EXPECT_FALSE(fs::exists(kept));
}

TEST_F(PreviewRoleTest, writesNoFileThroughALink) {
    write(folder.path() / "target", "untouched");
    fs::create_directories(services);
    fs::create_symlink(folder.path() / "target", nautilus);
    EXPECT_TRUE(install().succeeded);
    EXPECT_EQ(read(folder.path() / "target"), "untouched");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(nautilus)));
    EXPECT_TRUE(uninstall().succeeded);
    EXPECT_EQ(fs::read_symlink(nautilus), folder.path() / "target");
}

TEST_F(PreviewRoleTest, takesALinkToAFileOfItsOwnForAnothers) {
    install();
    fs::rename(nautilus, folder.path() / "target");
    fs::create_symlink(folder.path() / "target", nautilus);
    EXPECT_TRUE(uninstall().succeeded);
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(nautilus)));
    EXPECT_TRUE(fs::exists(folder.path() / "target"));
}

TEST_F(PreviewRoleTest, goesIntoNoFolderThroughALink) {
    for (const char* link : {"data/dbus-1", "data/dbus-1/services"}) {
        folder.makeFolder("outside/services");
        fs::remove_all(places.dataFolder);
        fs::create_directories((folder.path() / link).parent_path());
        fs::create_directory_symlink(folder.path() / "outside", folder.path() / link);
        for (const auto& report : {install(), uninstall()})
            EXPECT_TRUE(failedSaying(report, "“" + (folder.path() / link).string() + "”")) << joined(report);
        EXPECT_EQ(filesIn(folder.path() / "outside/services"), (std::map<std::string, Data>()));
        EXPECT_EQ(filesIn(folder.path() / "outside"), (std::map<std::string, Data>{{"services", ""}}));
    }
}

TEST_F(PreviewRoleTest, followsALinkThatIsTheDataFolder) {
    folder.makeFolder("elsewhere");
    fs::create_directory_symlink(folder.path() / "elsewhere", places.dataFolder);
    EXPECT_TRUE(install().succeeded);
    EXPECT_TRUE(fs::exists(folder.path() / "elsewhere/dbus-1/services/org.nemo.Preview.service"));
}

TEST_F(PreviewRoleTest, waitsForNoPipe) {
    fs::create_directories(services);
    ASSERT_EQ(::mkfifo(nautilus.c_str(), S_IRWXU), 0);
    EXPECT_TRUE(install().succeeded);
    EXPECT_TRUE(fs::is_fifo(kept));
    EXPECT_TRUE(uninstall().succeeded);
    EXPECT_TRUE(fs::is_fifo(nautilus));
}

TEST_F(PreviewRoleTest, movesAFolderOutOfTheWayAndBack) {
    write(nautilus / "inside", "kept");
    EXPECT_TRUE(install().succeeded);
    EXPECT_TRUE(fs::is_regular_file(nautilus));
    EXPECT_TRUE(uninstall().succeeded);
    EXPECT_EQ(read(nautilus / "inside"), "kept");
}

TEST_F(PreviewRoleTest, saysThatAFileIsInTheWayOfAFolder) {
    write(folder.path() / "data/dbus-1", "file");
    const auto report = install();
    EXPECT_TRUE(failedSaying(report, places.dataFolder + "/dbus-1")) << joined(report);
    EXPECT_EQ(read(folder.path() / "data/dbus-1"), "file");
}

TEST_F(PreviewRoleTest, saysThatAFolderIsNotWritable) {
    fs::permissions(folder.path(), fs::perms::all);
    makeProgram(places.viewer);
    fs::permissions(places.viewer, fs::perms::all);
    fs::permissions(folder.path() / "bin", fs::perms::all);
    const Unprivileged unprivileged;
    fs::create_directories(services);
    write(nautilus, anothers);
    const ScopedPermissions permissions(services.string(), S_IRUSR | S_IXUSR);
    const auto report = install();
    EXPECT_TRUE(failedSaying(report, "Permission denied. Make it writable")) << joined(report);
    EXPECT_EQ(filesIn(services).size(), 1U);
}

TEST(PreviewRolePlaces, areInTheUsersDataFolder) {
    const ScopedEnvironment environment{{"XDG_DATA_HOME", "/home/me/data"}, {"HOME", "/home/me"}};
    EXPECT_EQ(PreviewRole::standardPlaces().dataFolder, "/home/me/data");
}

TEST(PreviewRolePlaces, areBelowHomeWithoutAnAbsoluteDataFolder) {
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>(""),
                              std::optional<std::string>("relative/data")}) {
        const ScopedEnvironment environment{{"XDG_DATA_HOME", value}, {"HOME", "/home/me"}};
        EXPECT_EQ(PreviewRole::standardPlaces().dataFolder, "/home/me/.local/share");
    }
}

TEST(PreviewRolePlaces, areNowhereWithoutHome) {
    const ScopedEnvironment environment{{"XDG_DATA_HOME", std::nullopt}, {"HOME", std::nullopt}};
    EXPECT_EQ(PreviewRole::standardPlaces().dataFolder, "");
}

} // namespace
} // namespace quillmar
