#include "QuillmarQuickLook/CommandLine.h"

#include "Platform/ResourceValues.h"
#include "Platform/Terminal.h"
#include "QuillmarQuickLook/FileManagers/PreviewRole.h"
#include "QuillmarQuickLook/Icons/FinderIcons.h"
#include "QuillmarQuickLook/InstalledProgram.h"
#include "QuillmarQuickLook/PreviewProvider.h"
#include "QuillmarQuickLook/PreviewWriter.h"
#include "QuillmarQuickLook/Worker/ConfinedPreview.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace quillmar::CommandLine {
namespace {

struct Options {
    std::vector<std::string> paths;
    std::string outputFolder; ///< empty: none
    std::string htmlFile;     ///< empty: none; "-": standard output
    bool usesIcons = true;
    bool isVerbose = false;
    bool wantsVersion = false;
    bool installsPreview = false;
    bool uninstallsPreview = false;
};

void report(std::string_view message) {
    const std::string line = "quillmar: " + printableLine(message) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void describe(CLI::App& app, Options& options) {
    app.add_option("PATH", options.paths,
                   "The file or folder to preview; several of them in a window, one after the other");
    auto* output = app.add_option("--output", options.outputFolder,
                                  "Write index.html, the attachments and preview.json into this folder");
    auto* html =
        app.add_option("--html", options.htmlFile, "Write one self-contained page (- is standard output)");
    output->type_name("DIR")->excludes(html);
    html->type_name("FILE")->excludes(output);
    app.add_flag("!--no-icons", options.usesIcons, "Ask the desktop for no icons");
    app.add_flag("--verbose", options.isVerbose, "Say on standard error what is done");
    app.add_flag("--version", options.wantsVersion,
                 "Say which version this is; with --verbose, what confines the reading of files");
    auto* install = app.add_flag("--install-preview", options.installsPreview,
                                 "Have file managers show previews with Quillmar, for this user");
    app.add_flag("--uninstall-preview", options.uninstallsPreview, "Give that role back")->excludes(install);
    app.footer("A path that begins with a dash goes behind --.");
}

ExitStatus writePreview(const Options& options) {
    const FileURL url = FileURL::fromCommandLine(options.paths.front());
    std::optional<FinderIcons> icons;
    if (options.usesIcons) icons.emplace(FinderIcons::standardPlaces());
    const auto makeDocument = [](const FileURL& item, IconSource* source) {
        return ConfinedPreview().document(item, source);
    };
    const PreviewProvider provider(icons ? &*icons : nullptr, options.isVerbose, makeDocument);
    PreviewReply reply = provider.providePreview({url});
    if (!options.outputFolder.empty())
        PreviewWriter::writeFolder(reply, options.outputFolder);
    else
        PreviewWriter::writePage(reply, options.htmlFile);
    return ExitStatus::made;
}

/// Shows the items in a window: another program, which this one then is. Returns only when that fails.
ExitStatus openViewer(const Options& options) {
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && value[0] != '\0';
    };
    if (!isSet("WAYLAND_DISPLAY") && !isSet("DISPLAY")) {
        report("there is no display to open a window on: --html FILE writes the page instead, --html - to "
               "standard output");
        return ExitStatus::failed;
    }
    std::string viewer = installedProgram("QuillmarViewer");
    if (viewer.empty()) {
        report(
            "the viewer is not installed (the package quillmar-viewer): --html FILE writes the page instead");
        return ExitStatus::failed;
    }
    std::vector<std::string> paths = options.paths;
    for (std::string& path : paths) path = FileURL::fromCommandLine(path).path(); // none looks like an option
    std::vector<char*> arguments{viewer.data()};
    for (std::string& path : paths) arguments.push_back(path.data());
    arguments.push_back(nullptr);
    ::execv(viewer.c_str(), arguments.data());
    report("the viewer cannot be started: " + std::generic_category().message(errno));
    return ExitStatus::failed;
}

/// Takes the previewer's role for this user, or gives it back, and says what was done.
ExitStatus changeRole(const Options& options) {
    const PreviewRole::Places places = PreviewRole::standardPlaces();
    const PreviewRole::Report done =
        options.installsPreview ? PreviewRole::install(places) : PreviewRole::uninstall(places);
    for (const std::string& line : done.lines) {
        const bool isProblem = !done.succeeded && &line == &done.lines.back();
        if (isProblem)
            report(line);
        else
            std::puts(printableLine(line).c_str());
    }
    return done.succeeded ? ExitStatus::made : ExitStatus::failed;
}

ExitStatus preview(const Options& options, bool isWritten) {
    for (const std::string& path : options.paths) {
        if (!path.empty() && itemExists(FileURL::fromCommandLine(path))) continue;
        report("“" + path + "” does not exist");
        return ExitStatus::failed;
    }
    return isWritten ? writePreview(options) : openViewer(options);
}

ExitStatus writeVersion(bool isVerbose) {
    std::string text = "Quillmar " QUILLMAR_VERSION "\n";
    if (isVerbose) text += ConfinedPreview().confinement();
    std::fwrite(text.data(), 1, text.size(), stdout);
    return ExitStatus::made;
}

} // namespace

ExitStatus run(int argc, const char* const* argv) {
    // A reader that closes the pipe early is an error of writing like any other.
    std::signal(SIGPIPE, SIG_IGN);

    Options options;
    CLI::App app("Quillmar shows what a file or folder is, as one HTML page.", "quillmar");
    describe(app, options);
    try {
        app.parse(argc, argv);
        if (options.wantsVersion) return writeVersion(options.isVerbose);
        if (options.installsPreview || options.uninstallsPreview) return changeRole(options);
        if (app.count("PATH") == 0) throw CLI::RequiredError("PATH");
        const bool isWritten = app.count("--html") + app.count("--output") > 0;
        if (isWritten && options.outputFolder.empty() && options.htmlFile.empty())
            throw CLI::ValidationError("say where the page goes: --html FILE or --output DIR");
        if (isWritten && options.paths.size() > 1)
            throw CLI::ValidationError("one PATH at a time goes into a page: several are for the viewer");
        return preview(options, isWritten);
    } catch (const CLI::Success& help) {
        app.exit(help);
        return ExitStatus::made;
    } catch (const CLI::ParseError& error) {
        report(std::string(error.what()) + " (see quillmar --help)");
        return ExitStatus::usage;
    } catch (const PreviewWriter::WriteError& error) {
        report(error.what());
    } catch (const std::bad_alloc&) {
        report("not enough memory");
    }
    return ExitStatus::failed;
}

} // namespace quillmar::CommandLine
