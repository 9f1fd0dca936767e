#include "Platform/LocalZone.h"

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

unsigned updateLocalZone() {
    // Without TZ, tzset asks for the system's zone file each time, which takes longer than to write a date. So
    // it is called only when TZ has changed.
    thread_local std::optional<std::string> lastZone;
    thread_local unsigned changes = 0;
    const char* variable = std::getenv("TZ");
    const std::string_view zone = variable != nullptr ? variable : ":/etc/localtime"; // the C library's default
    if (lastZone == zone) return changes;
    tzset();
    lastZone = zone;
    return ++changes;
}

} // namespace quillmar
