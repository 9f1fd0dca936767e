#include "Tests/QuillmarViewer/Desktop.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <set>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quillmar {
namespace {

constexpr int announcedDescriptor = 3;

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

/// What a file of /proc says; empty when the process has gone meanwhile.
std::string told(const std::filesystem::path& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::string text;
    std::array<char, 4'096> room{};
    for (ssize_t count = 1; file >= 0 && count > 0;) {
        count = ::read(file, room.data(), room.size());
        if (count > 0) text.append(room.data(), static_cast<std::size_t>(count));
    }
    if (file >= 0) ::close(file);
    return text;
}

/// From /proc; none when the process has gone meanwhile.
std::optional<Desktop::Process> processAt(const std::filesystem::path& folder) {
    const std::string status = told(folder / "stat");
    const auto name = status.rfind(')'); // the name before it may hold anything
    if (name == std::string::npos) return std::nullopt;
    constexpr std::size_t stateAndSpaces = 4;
    Desktop::Process process;
    process.id = std::atoi(folder.filename().c_str());
    std::istringstream numbers(status.substr(name + stateAndSpaces));
    numbers >> process.parent;
    long ignored = 0;
    constexpr int between = 9; // fields up to the processor time (proc(5), "stat")
    for (int i = 0; i < between; ++i) numbers >> ignored;
    long user = 0;
    long system = 0;
    numbers >> user >> system;
    process.processorSeconds = static_cast<double>(user + system) / static_cast<double>(::sysconf(_SC_CLK_TCK));
    const std::string line = told(folder / "cmdline");
    for (std::size_t start = 0; start < line.size();) {
        const auto end = std::min(line.find('\0', start), line.size());
        process.arguments.push_back(line.substr(start, end - start));
        start = end + 1;
    }
    return process;
}

} // namespace

Desktop::Desktop() {
    // Whoever loses its parent becomes a child of this process, where it is found and ended.
    ::prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0);
    for (const char* name : {"home", "data", "config", "state", "cache", "runtime", "outputs"}) {
        folder_.makeFolder(name);
        ::chmod((folder_.path() / name).c_str(), S_IRWXU);
    }
    const auto place = [this](const char* name) { return (folder_.path() / name).string(); };
    environment_ = {{"LANG", "C.UTF-8"},
                    {"HOME", place("home")},
                    {"XDG_DATA_HOME", place("data")},
                    {"XDG_CONFIG_HOME", place("config")},
                    {"XDG_STATE_HOME", place("state")},
                    {"XDG_CACHE_HOME", place("cache")},
                    {"XDG_RUNTIME_DIR", place("runtime")},
                    {"XDG_DATA_DIRS", "/usr/local/share:/usr/share"},
                    {"GDK_BACKEND", "x11"},
                    {"GSK_RENDERER", "cairo"},
                    {"GTK_A11Y", "none"},
                    {"GSETTINGS_BACKEND", "memory"},
                    {"GIO_USE_VFS", "local"}};
    for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS",
                             "WEBKIT_DISABLE_SANDBOX_THIS_IS_DANGEROUS"})
        if (const char* value = std::getenv(name); value != nullptr) environment_[name] = value;
    startScreen();
    startBus();
}

Desktop::~Desktop() {
    bus_.reset();
    screen_.reset();
    // Each round may uncover children of what has just ended.
    const auto allEnded = [this] {
        const auto left = processes();
        for (const Process& process : left) ::kill(process.id, SIGKILL);
        while (::waitpid(-1, nullptr, WNOHANG) > 0) {
        }
        return left.empty();
    };
    waitUntil(allEnded);
}

void Desktop::startScreen() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    spawn({"Xvfb", "-displayfd", "3", "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"}, {},
          ends[1]);
    ::close(ends[1]);
    const std::string display = ":" + announcement(ends[0]);
    ::close(ends[0]);
    environment_["DISPLAY"] = display;
    screen_ = std::make_unique<Screen>(display);
}

void Desktop::startBus() {
    const std::string path = "unix:path=" + (folder_.path() / "runtime" / "bus").string();
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    spawn({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + path, "--print-address=3"}, {},
          ends[1]);
    ::close(ends[1]);
    const std::string address = announcement(ends[0]);
    ::close(ends[0]);
    environment_["DBUS_SESSION_BUS_ADDRESS"] = address;
    bus_ = std::make_unique<DesktopBus>(address);
}

std::string Desktop::announcement(int descriptor) const {
    std::string line;
    constexpr int bound = 10'000; // milliseconds
    for (;;) {
        pollfd waiting{.fd = descriptor, .events = POLLIN, .revents = 0};
        char character = 0;
        const bool isThere =
            ::poll(&waiting, 1, bound) == 1 && ::read(descriptor, &character, sizeof character) == 1;
        if (!isThere) throw std::runtime_error("a program of the desktop does not start");
        if (character == '\n') return line;
        line += character;
    }
}

pid_t Desktop::start(const Arguments& arguments, const Environment& changes) {
    return spawn(arguments, changes, -1);
}

pid_t Desktop::spawn(const Arguments& arguments, const Environment& changes, int announced) {
    Environment environment = environment_;
    for (const auto& [name, value] : changes) environment[name] = value;
    std::vector<std::string> settings;
    for (const auto& [name, value] : environment)
        if (!value.empty()) settings.push_back(std::string(name).append("=").append(value));
    Arguments words = arguments;
    const auto argv = pointers(words);
    const auto envp = pointers(settings);
    const auto output = folder_.path() / "outputs" / std::to_string(outputs_.size());
    const int log = ::open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, S_IRUSR | S_IWUSR);
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no process");
    if (child == 0) {
        // Should this program be killed, so is the child.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL, 0, 0, 0);
        ::setpgid(0, 0);
        const int nothing = ::open("/dev/null", O_RDONLY);
        ::dup2(nothing, STDIN_FILENO);
        ::dup2(log, STDOUT_FILENO);
        ::dup2(log, STDERR_FILENO);
        if (announced >= 0) ::dup2(announced, announcedDescriptor);
        // The descriptor stays open when it had the right number before.
        if (announced == announcedDescriptor) ::fcntl(announced, F_SETFD, 0);
        constexpr int cannotStart = 127;
        ::execvpe(argv[0], argv.data(), envp.data());
        ::_exit(cannotStart);
    }
    ::close(log);
    outputs_[child] = output;
    ended_.erase(child);
    return child;
}

std::optional<int> Desktop::status(pid_t program) {
    if (const auto known = ended_.find(program); known != ended_.end()) return known->second;
    int status = 0;
    if (::waitpid(program, &status, WNOHANG) != program) return std::nullopt;
    ended_[program] = status;
    return status;
}

std::optional<int> Desktop::exitStatus(pid_t program) {
    if (!waitUntil([&] { return status(program).has_value(); })) return std::nullopt;
    const int ended = *status(program);
    return WIFEXITED(ended) ? std::optional(WEXITSTATUS(ended)) : std::nullopt;
}

void Desktop::end(pid_t program) {
    if (status(program)) return;
    ::kill(-program, SIGKILL);
    waitUntil([&] { return status(program).has_value(); });
}

std::string Desktop::output(pid_t program) const { return contentsOf(outputs_.at(program)); }

std::vector<Desktop::Process> Desktop::processes() const {
    std::vector<Process> all;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", ignored)) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        if (auto process = processAt(entry.path())) all.push_back(*std::move(process));
    }
    std::set<pid_t> family{::getpid()};
    std::vector<Process> result;
    // Numbers of processes wrap around, so children may stand before their parents.
    for (std::size_t before = 0; before != family.size();) {
        before = family.size();
        for (const Process& process : all)
            if (family.contains(process.parent) && family.insert(process.id).second) result.push_back(process);
    }
    return result;
}

std::vector<pid_t> Desktop::processesNamed(const std::string& word) const {
    std::vector<pid_t> result;
    for (const Process& process : processes()) {
        if (process.arguments.empty()) continue;
        const bool isProgram = std::filesystem::path(process.arguments.front()).filename() == word;
        const bool isArgument = std::ranges::find(process.arguments, word) != process.arguments.end();
        if (isProgram || isArgument) result.push_back(process.id);
    }
    return result;
}

double Desktop::processorSeconds(const std::string& word) const {
    const auto wanted = processesNamed(word);
    double sum = 0;
    for (const Process& process : processes())
        if (std::ranges::find(wanted, process.id) != wanted.end()) sum += process.processorSeconds;
    return sum;
}

void Desktop::press(const std::string& key) { exitStatus(start({"xdotool", "key", "--clearmodifiers", key})); }

void Desktop::type(const std::string& text) {
    exitStatus(start({"xdotool", "type", "--clearmodifiers", "--delay", "1", text}));
}

void Desktop::click(int x, int y) {
    exitStatus(start({"xdotool", "mousemove", std::to_string(x), std::to_string(y), "click", "1"}));
}

bool Desktop::waitUntil(const Condition& condition, std::chrono::milliseconds bound) {
    constexpr std::chrono::milliseconds pause{2};
    const auto end = std::chrono::steady_clock::now() + bound;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

} // namespace quillmar
