#include "QuillmarQuickLook/FileManagers/PreviewRole.h"

#include "QuillmarQuickLook/FileManagers/ServiceFile.h"
#include "QuillmarQuickLook/FileManagers/ServicesFolder.h"
#include "QuillmarQuickLook/InstalledProgram.h"
#include "QuillmarQuickLook/UserFolders.h"

#include <array>
#include <filesystem>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace quillmar::PreviewRole {
namespace {

/// Those of the names that GNOME Files and Nemo call.
constexpr std::array<const char*, 2> busNames{"org.gnome.NautilusPreviewer", "org.nemo.Preview"};

std::string fileOf(const char* busName) { return std::string(busName).append(".service"); }
std::string keptNameOf(const std::string& file) { return file + ".before-quillmar"; }

/// Session buses look at the folders that they have known since their start, and at others when a name is
/// called that they do not know. One that knows another previewer for the name does not look for a folder that
/// is new.
constexpr const char* effectOfInstall =
    "File managers use it from the next preview on. A previewer that is running keeps the role until it "
    "leaves. "
    "If another one comes even then, log out and in, or run: gdbus call --session -d org.freedesktop.DBus "
    "-o /org/freedesktop/DBus -m org.freedesktop.DBus.ReloadConfig";
constexpr const char* effectOfUninstall =
    "File managers use the system's previewer, if there is one, from the next preview on. Quillmar's keeps the "
    "role while it is running, and leaves some minutes after its last preview.";

enum class Holder { nobody, us, another };

Holder holderOf(const ServicesFolder& folder, const std::string& file) {
    if (const auto contents = folder.contents(file); contents && ServiceFile::isOurs(*contents))
        return Holder::us;
    return folder.has(file) ? Holder::another : Holder::nobody;
}

std::string sentence(std::string_view before, std::string_view path, std::string_view after) {
    return std::string(before).append("“").append(path).append("”").append(after);
}

void keepAside(const ServicesFolder& folder, const std::string& file, Report& report) {
    const std::string kept = keptNameOf(file);
    if (folder.has(kept))
        throw ServicesFolderError(
            sentence("", folder.pathOf(file), " is another program's and would be kept as ")
                .append(
                    sentence("", folder.pathOf(kept),
                             ", but that is there already. Remove the one that is not needed and try again.")));
    folder.rename(file, kept);
    report.lines.push_back(sentence("", folder.pathOf(file), " was another program's and is kept as ")
                               .append(sentence("", folder.pathOf(kept), ".")));
}

void putBack(const ServicesFolder& folder, const std::string& file, Report& report) {
    folder.rename(keptNameOf(file), file);
    report.lines.push_back(sentence("Put back ", folder.pathOf(file), " as it was before."));
}

void installOne(const ServicesFolder& folder, const char* busName, const std::string& viewer, Report& report) {
    const std::string file = fileOf(busName);
    const std::string text = ServiceFile::text(busName, viewer);
    if (folder.contents(file) == text) {
        report.lines.push_back(sentence("", folder.pathOf(file), " is there already."));
        return;
    }
    const bool isAnothers = holderOf(folder, file) == Holder::another;
    if (isAnothers) keepAside(folder, file, report);
    try {
        folder.write(file, text);
    } catch (const ServicesFolderError&) {
        if (isAnothers) putBack(folder, file, report);
        throw;
    }
    report.lines.push_back(sentence("Wrote ", folder.pathOf(file), "."));
}

void uninstallOne(const ServicesFolder& folder, const char* busName, Report& report) {
    const std::string file = fileOf(busName);
    const Holder holder = holderOf(folder, file);
    if (holder == Holder::another) {
        report.lines.push_back(sentence("", folder.pathOf(file), " is another program's and stays."));
        return;
    }
    if (holder == Holder::us) folder.remove(file);
    report.lines.push_back(holder == Holder::us ? sentence("Removed ", folder.pathOf(file), ".")
                                                : sentence("", folder.pathOf(file), " is not there."));
    if (folder.has(keptNameOf(file))) putBack(folder, file, report);
}

/// Throws when there is no folder to go to.
void checkDataFolder(const std::string& dataFolder) {
    if (dataFolder.starts_with('/')) return;
    throw ServicesFolderError(
        "This user has no folder for data: set HOME, or XDG_DATA_HOME, to an absolute path and try again.");
}

/// Throws when there is no program that a session bus could start.
void checkViewer(const std::string& viewer) {
    if (viewer.empty())
        throw ServicesFolderError(
            "The program that shows previews, QuillmarViewer, is not installed. Install it and try again.");
    std::error_code ignored;
    const bool isProgram = viewer.starts_with('/') && std::filesystem::is_regular_file(viewer, ignored) &&
                           ::access(viewer.c_str(), X_OK) == 0;
    if (!isProgram)
        throw ServicesFolderError(
            sentence("", viewer, " is no program that can be started. Install it again and try again."));
    if (!ServiceFile::canHold(viewer))
        throw ServicesFolderError(sentence("The session bus cannot read the path ", viewer,
                                           ". Install Quillmar in a folder whose name is UTF-8 without control "
                                           "characters."));
}

} // namespace

Places standardPlaces() {
    const std::filesystem::path viewer = installedProgram("QuillmarViewer");
    return {.dataFolder = UserFolders::data(), .viewer = viewer.lexically_normal()};
}

Report install(const Places& places) {
    Report report;
    try {
        checkDataFolder(places.dataFolder);
        checkViewer(places.viewer);
        const ServicesFolder folder = ServicesFolder::made(places.dataFolder);
        for (const char* busName : busNames) installOne(folder, busName, places.viewer, report);
        report.lines.emplace_back(effectOfInstall);
        report.succeeded = true;
    } catch (const ServicesFolderError& error) {
        report.lines.emplace_back(error.what());
    }
    return report;
}

Report uninstall(const Places& places) {
    Report report;
    try {
        checkDataFolder(places.dataFolder);
        if (const auto folder = ServicesFolder::existing(places.dataFolder))
            for (const char* busName : busNames) uninstallOne(*folder, busName, report);
        else
            report.lines.push_back(sentence("There are no service files in ", places.dataFolder, "."));
        report.lines.emplace_back(effectOfUninstall);
        report.succeeded = true;
    } catch (const ServicesFolderError& error) {
        report.lines.emplace_back(error.what());
    }
    return report;
}

} // namespace quillmar::PreviewRole
