// How long it takes until a preview can be seen, and what it keeps: from the start of the viewer to the first
// page's pixels, from a file manager's call to the pixels of the next page, and the memory of all its processes
// over 200 previews. Wants a display and a session bus of its own: see scripts/measure-viewer.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Samples.h"
#include "Benchmarks/ViewerScreen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gio/gio.h>
#include <string>
#include <vector>

namespace quillmar {
namespace {

constexpr int coldRuns = 15;
constexpr gulong restAfterRun = 500'000; ///< microseconds in which WebKit's other processes end
constexpr int warmRuns = 40;
constexpr int memoryRuns = 200;

/// Markdown whose page has a large square of one colour in its middle.
std::string document(const std::string& name, const std::string& color) {
    const std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='700' height='900'>"
                            "<rect width='700' height='900' fill='" +
                            color + "'/></svg>";
    std::string text = "# " + name + "\n\n![square](data:image/svg+xml;base64,";
    char* encoded = g_base64_encode(reinterpret_cast<const guchar*>(svg.data()), svg.size());
    text.append(encoded).append(")\n\n").append(Samples::sourceCode(16'384));
    g_free(encoded);
    return Samples::file(name + ".md", text);
}

void showFile(GDBusConnection* bus, const std::string& path) {
    char* uri = g_filename_to_uri(path.c_str(), nullptr, nullptr);
    GVariant* answer = g_dbus_connection_call_sync(
        bus, "org.gnome.NautilusPreviewer", "/org/gnome/NautilusPreviewer", "org.gnome.NautilusPreviewer2",
        "ShowFile", g_variant_new("(ssb)", uri, "x11:0", FALSE), nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1,
        nullptr, nullptr);
    if (answer != nullptr) g_variant_unref(answer);
    g_free(uri);
}

void waitForName(GDBusConnection* bus) {
    for (;;) {
        GVariant* answer = g_dbus_connection_call_sync(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                       "org.freedesktop.DBus", "NameHasOwner",
                                                       g_variant_new("(s)", "org.gnome.NautilusPreviewer"),
                                                       nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
        gboolean isOwned = FALSE;
        if (answer != nullptr) {
            g_variant_get(answer, "(b)", &isOwned);
            g_variant_unref(answer);
        }
        if (isOwned != FALSE) return;
        g_usleep(1'000);
    }
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void print(const char* what, const std::vector<double>& values) {
    std::printf("%-46s median %6.0f ms, %.0f to %.0f, %zu runs\n", what, median(values),
                *std::ranges::min_element(values), *std::ranges::max_element(values), values.size());
}

/// The page of the file at \p path, as the command writes it.
std::string writtenPage(const std::string& path) {
    const std::string page = path + ".html";
    CommandRun::seconds({QUILLMAR_BINARY, "--html", page, path});
    return page;
}

double millisecondsToStart(const std::vector<std::string>& program, const ViewerScreen& screen) {
    const auto start = ViewerScreen::now();
    const pid_t process = ViewerScreen::start(program);
    const double milliseconds = screen.millisecondsUntil(ViewerScreen::red, start);
    ViewerScreen::end(process);
    g_usleep(restAfterRun);
    return milliseconds;
}

void measure(const std::string& viewer) {
    const std::string red = document("red", "#ff0000");
    const std::string blue = document("blue", "#0000ff");
    ViewerScreen screen;

    const std::string page = writtenPage(red);
    std::vector<double> cold;
    std::vector<double> bare;
    for (int i = 0; i < coldRuns; ++i) {
        cold.push_back(millisecondsToStart({viewer, red}, screen));
        bare.push_back(millisecondsToStart({QUILLMAR_BARE_WINDOW, page}, screen));
    }
    print("start of the program to the page's pixels", cold);
    print("the same page in a bare window", bare);

    const pid_t service = ViewerScreen::start({viewer, "--service"});
    GDBusConnection* bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    waitForName(bus);
    showFile(bus, red);
    screen.millisecondsUntil(ViewerScreen::red, ViewerScreen::now());
    std::vector<double> warm;
    for (int i = 0; i < warmRuns; ++i) {
        const bool isBlue = i % 2 == 0;
        const auto start = ViewerScreen::now();
        showFile(bus, isBlue ? blue : red);
        warm.push_back(screen.millisecondsUntil(isBlue ? ViewerScreen::blue : ViewerScreen::red, start));
        g_usleep(200'000);
    }
    print("call on the bus to the next page's pixels", warm);
    std::printf("%-46s %6.0f MB\n", "memory (PSS, all processes), a page shown",
                ViewerScreen::megabytes(service));
    for (int i = 0; i < memoryRuns; ++i) {
        const bool isBlue = i % 2 == 0;
        showFile(bus, isBlue ? blue : red);
        screen.millisecondsUntil(isBlue ? ViewerScreen::blue : ViewerScreen::red, ViewerScreen::now());
    }
    std::printf("%-46s %6.0f MB\n", "the same after 200 more previews", ViewerScreen::megabytes(service));
    ViewerScreen::end(service);
    g_object_unref(bus);
}

} // namespace
} // namespace quillmar

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: QuillmarViewerBenchmark VIEWER\n", stderr);
        return 2;
    }
    quillmar::measure(argv[1]);
}
