#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace quillmar {

/// True when a person reads what is written to \p stream.
bool isTerminal(std::FILE* stream);

/// \p text on one line, its control characters shown as "?": names come from strangers, and a terminal obeys
/// what it is sent.
std::string printableLine(std::string_view text);

} // namespace quillmar
