#pragma once

#include <optional>
#include <string>
#include <sys/types.h>

namespace quillmar {

/// Tries what WebKit will do, which ends the program where its sandbox cannot be made. The trial runs beside
/// whatever else is started.
class SandboxTrial {
public:
    SandboxTrial();
    ~SandboxTrial();
    SandboxTrial(const SandboxTrial&) = delete;
    SandboxTrial& operator=(const SandboxTrial&) = delete;

    /// Why no window can show a page here, as a sentence for the user that says what to do; none when one can.
    /// Waits for the trial's end.
    std::optional<std::string> problem();

private:
    std::optional<int> status();

    pid_t process_ = -1; ///< none: there is no program to try
};

} // namespace quillmar
