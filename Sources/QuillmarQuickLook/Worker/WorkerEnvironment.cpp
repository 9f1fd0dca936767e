#include "QuillmarQuickLook/Worker/WorkerEnvironment.h"

#include <cstdlib>
#include <unistd.h>

namespace quillmar {

std::vector<std::string> WorkerEnvironment::variables() {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable != nullptr; ++variable) variables.emplace_back(*variable);
    if (std::getenv(allocatorTunables) == nullptr)
        variables.push_back(std::string(allocatorTunables).append("=").append(memoryOfWorkers));
    return variables;
}

} // namespace quillmar
