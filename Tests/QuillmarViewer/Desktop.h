#pragma once

#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/QuillmarViewer/DesktopBus.h"
#include "Tests/QuillmarViewer/Screen.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace quillmar {

/// An X server, a session bus and a home, for one test program alone. Whatever is started on it, by whomever,
/// ends with it.
class Desktop {
public:
    /// Throws when it cannot be made.
    Desktop();
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    using Arguments = std::vector<std::string>;
    using Environment = std::map<std::string, std::string>;

    /// Starts a program in a group of its own. \p changes are made to the desktop's environment; an empty value
    /// takes a variable away.
    pid_t start(const Arguments& arguments, const Environment& changes = {});
    /// As `waitpid` tells it; none while the program runs.
    std::optional<int> status(pid_t program);
    /// Waits for it, for as long as `patience`; none when it does not end.
    std::optional<int> exitStatus(pid_t program);
    /// Ends a program and waits for its end.
    void end(pid_t program);
    /// What the program has written to its standard output and error.
    std::string output(pid_t program) const;

    struct Process {
        pid_t id = 0;
        pid_t parent = 0;
        Arguments arguments;
        double processorSeconds = 0;
    };
    /// All that runs because of this desktop.
    std::vector<Process> processes() const;
    /// Those with the argument \p word, or a program of this name.
    std::vector<pid_t> processesNamed(const std::string& word) const;

    /// What those have used up to now, together.
    double processorSeconds(const std::string& word) const;

    /// Presses a key, as `xdotool` calls it, in whatever window has the focus.
    void press(const std::string& key);
    void type(const std::string& text);
    /// Clicks with the first button.
    void click(int x, int y);

    using Condition = std::function<bool()>;
    static constexpr std::chrono::seconds patience{15};
    /// Looks again and again; false when \p condition has not come true in time.
    static bool waitUntil(const Condition& condition, std::chrono::milliseconds bound = patience);

    DesktopBus& bus() { return *bus_; }
    const std::string& busAddress() const { return environment_.at("DBUS_SESSION_BUS_ADDRESS"); }
    Screen& screen() { return *screen_; }
    const TemporaryFolder& folder() const { return folder_; }
    /// `$XDG_DATA_HOME`, where service files of the bus are looked for first.
    std::filesystem::path dataHome() const { return folder_.path() / "data"; }

private:
    void startScreen();
    void startBus();
    /// The first line that a program writes to its descriptor 3.
    std::string announcement(int descriptor) const;
    pid_t spawn(const Arguments& arguments, const Environment& changes, int announced);

    TemporaryFolder folder_;
    Environment environment_;
    std::map<pid_t, int> ended_; ///< programs and their statuses
    std::map<pid_t, std::filesystem::path> outputs_;
    std::unique_ptr<Screen> screen_;
    std::unique_ptr<DesktopBus> bus_;
};

} // namespace quillmar
