#pragma once

#include <cstddef>
#include <functional>

namespace quillmar {

/// Calls \p body with every number below \p iterations, in any order and on as many threads as the machine has
/// processors. Returns when all calls have; what one of them threw first is thrown again.
void concurrentPerform(std::size_t iterations, const std::function<void(std::size_t)>& body);

/// Threads that the loop uses, at least 1.
std::size_t concurrentThreads();

} // namespace quillmar
