#pragma once

#include <optional>
#include <string>

/// Workers as an item could make them that has taken one over.
namespace quillmar::MisbehavingWorker {

/// The environment variable that names the conduct of workers; without it they are the real ones.
inline constexpr const char* variable = "QUILLMAR_TEST_WORKER";

std::optional<std::string> wantedConduct();

/// Behaves as \p conduct says, one of the names in the source. Returns the process's exit status.
int run(const std::string& conduct);

} // namespace quillmar::MisbehavingWorker
