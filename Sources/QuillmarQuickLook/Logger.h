#pragma once

#include <string>
#include <string_view>

namespace quillmar {

/// Debug messages of one subsystem and category. They cost nothing and go nowhere unless somebody asked for
/// them; then they go to standard error.
class Logger {
public:
    Logger(std::string_view subsystem, std::string_view category, bool isEnabled)
        : subsystem_(subsystem), category_(category), isEnabled_(isEnabled) {}

    void debug(std::string_view message) const;

    /// \p text as a message may show it: as it is on a terminal, "<private>" where the log could be kept.
    static std::string privateText(std::string_view text);

private:
    std::string subsystem_;
    std::string category_;
    bool isEnabled_;
};

} // namespace quillmar
