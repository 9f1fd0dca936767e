#pragma once

#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillmar {

/// Environment variables, set or (with none) removed while this lives.
class ScopedEnvironment {
public:
    using Setting = std::pair<std::string, std::optional<std::string>>;

    ScopedEnvironment(std::initializer_list<Setting> settings) {
        for (const auto& [name, value] : settings) {
            const char* before = std::getenv(name.c_str());
            before_.emplace_back(name, before != nullptr ? std::optional<std::string>(before) : std::nullopt);
            set(name, value);
        }
    }
    ~ScopedEnvironment() {
        for (const auto& [name, value] : before_) set(name, value);
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    static void set(const std::string& name, const std::optional<std::string>& value) {
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
    }

    std::vector<Setting> before_;
};

} // namespace quillmar
