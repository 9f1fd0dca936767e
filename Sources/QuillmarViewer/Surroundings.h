#pragma once

#include <optional>
#include <string>

namespace quillmar {

/// Why no window can show a page here, as a sentence for the user that says what to do; none when one can.
/// Asked before WebKit starts, which ends the program where its sandbox cannot be made.
std::optional<std::string> whyNoPageCanBeShown();

} // namespace quillmar
