#include "Tests/QuillmarViewer/ServiceTest.h"

#include "Tests/QuillmarViewer/StagedWorker.h"

#include <utility>

namespace quillmar {
namespace {

constexpr const char* busName = "org.gnome.NautilusPreviewer";
constexpr const char* interface = "org.gnome.NautilusPreviewer2";

} // namespace

std::unique_ptr<Desktop> ServiceTest::desktop_;
std::string ServiceTest::binFolder_;
Desktop::Environment ServiceTest::environment_;
Desktop::Arguments ServiceTest::serviceOptions_;
pid_t ServiceTest::service_ = -1;

void ServiceTest::SetUpTestSuite() { makeDesktop(QUILLMAR_BIN_FOLDER); }

void StagedServiceTest::SetUpTestSuite() { makeDesktop({}); }

void ServiceTest::TearDownTestSuite() {
    desktop_.reset();
    startServicesWith({});
}

void ServiceTest::makeDesktop(const std::string& binFolder, const std::function<void(Desktop&)>& prepare) {
    desktop_ = std::make_unique<Desktop>();
    binFolder_ = binFolder;
    if (binFolder_.empty()) {
        binFolder_ = desktop_->folder().makeFolder("programs").path();
        StagedWorker::makePrograms(binFolder_);
    }
    prepare(*desktop_);
    startService();
}

void ServiceTest::startServicesWith(Desktop::Environment changes, Desktop::Arguments options) {
    environment_ = std::move(changes);
    serviceOptions_ = std::move(options);
}

void ServiceTest::startService() {
    Desktop::Arguments arguments{binFolder_ + "/QuillmarViewer", "--service", "--save-pictures"};
    arguments.insert(arguments.end(), serviceOptions_.begin(), serviceOptions_.end());
    service_ = desktop_->start(arguments, environment_);
    Desktop::waitUntil([] { return bus().hasOwner(busName); });
}

bool ServiceTest::serviceIsAlive() { return !desktop_->status(service_) && bus().hasOwner(busName); }

void ServiceTest::SetUp() {
    if (desktop().status(service())) startService();
    ASSERT_TRUE(serviceIsAlive());
    bus().forget();
}

void ServiceTest::TearDown() {
    ASSERT_TRUE(serviceIsAlive()) << desktop().output(service());
    close();
    EXPECT_TRUE(Desktop::waitUntil([] { return !isVisible(); }));
    if (HasFailure())
        desktop().end(service()); // and leave the next test a service that nothing has happened to
}

std::string ServiceTest::uriOf(const FileURL& url) {
    char* uri = g_filename_to_uri(url.path().c_str(), nullptr, nullptr);
    std::string result = uri;
    g_free(uri);
    return result;
}

std::string ServiceTest::item(const std::string& name, DataView content) {
    return uriOf(desktop_->folder().write(name, content));
}

DesktopBus::Reply ServiceTest::showFile(const std::string& uri, bool closeIfShown, const std::string& parent) {
    return bus().call(busName, objectPath, interface, "ShowFile",
                      g_variant_new("(ssb)", uri.c_str(), parent.c_str(), closeIfShown ? TRUE : FALSE));
}

DesktopBus::Reply ServiceTest::showFileWithToken(const std::string& uri, const std::string& token) {
    return bus().call(busName, objectPath, interface, "ShowFile",
                      g_variant_new("(ssbs)", uri.c_str(), "x11:0", FALSE, token.c_str()));
}

DesktopBus::Reply ServiceTest::close() { return bus().call(busName, objectPath, interface, "Close", nullptr); }

bool ServiceTest::isVisible() {
    const auto reply = bus().call(busName, objectPath, "org.freedesktop.DBus.Properties", "Get",
                                  g_variant_new("(ss)", interface, "Visible"));
    return reply.text == "(<true>,)";
}

std::optional<Picture> ServiceTest::page() {
    const std::string path = desktop_->folder().url("page.png").path();
    const auto reply = bus().call(busName, "/app/quillmar/Viewer", "app.quillmar.Viewer", "SavePicture",
                                  g_variant_new("(s)", path.c_str()));
    return reply.text == "(true,)" ? Picture::read(path) : std::nullopt;
}

bool ServiceTest::pageBecomes(Color color) {
    constexpr double most = 0.5;
    return Desktop::waitUntil([&] {
        const auto picture = page();
        return picture && picture->share(color) > most;
    });
}

bool ServiceTest::textOfPageHolds(const std::string& words, const std::string& title) {
    return Desktop::waitUntil([&] {
        pressIn(title, "ctrl+a");
        pressIn(title, "ctrl+c");
        constexpr std::chrono::milliseconds soon{300};
        return Desktop::waitUntil([&] { return screen().clipboard().find(words) != std::string::npos; }, soon);
    });
}

bool ServiceTest::windowAppears(const std::string& title, std::chrono::seconds bound) {
    return Desktop::waitUntil([&] { return screen().window(title).has_value(); }, bound);
}

bool ServiceTest::windowGoes(const std::string& title) {
    return Desktop::waitUntil([&] { return !screen().window(title).has_value(); });
}

void ServiceTest::pressIn(const std::string& title, const std::string& key) {
    ASSERT_TRUE(windowAppears(title));
    if (const auto window = screen().window(title)) screen().focus(*window);
    desktop().press(key);
}

bool ServiceTest::wasSaid(const std::string& member, const std::string& arguments) {
    return Desktop::waitUntil(
        [&] { return bus().wasSaid(objectPath, {.member = member, .arguments = arguments}); });
}

} // namespace quillmar
