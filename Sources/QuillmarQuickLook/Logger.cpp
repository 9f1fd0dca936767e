#include "QuillmarQuickLook/Logger.h"

#include "Platform/Terminal.h"

#include <cstdio>

namespace quillmar {

void Logger::debug(std::string_view message) const {
    if (!isEnabled_) return;
    const std::string line = subsystem_ + " [" + category_ + "] " + printableLine(message) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

std::string Logger::privateText(std::string_view text) {
    return isTerminal(stderr) ? std::string(text) : "<private>";
}

} // namespace quillmar
