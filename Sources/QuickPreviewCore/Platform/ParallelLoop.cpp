#include "Platform/ParallelLoop.h"

#include <algorithm>
#include <exception>
#include <thread>

namespace quillmar {
namespace {

/// More threads than this find nothing to do in a file system.
constexpr unsigned maxThreads = 8;

} // namespace

std::size_t concurrentThreads() { return std::clamp(std::thread::hardware_concurrency(), 1U, maxThreads); }

void concurrentPerform(std::size_t iterations, const std::function<void(std::size_t)>& body) {
    std::exception_ptr failure;
#ifdef _OPENMP
#pragma omp parallel for schedule(dynamic) num_threads(static_cast <int>(concurrentThreads()))
#endif
    for (std::size_t i = 0; i < iterations; ++i) {
        try {
            body(i);
        } catch (...) {
#ifdef _OPENMP
#pragma omp critical
#endif
            if (!failure) failure = std::current_exception();
        }
    }
    if (failure) std::rethrow_exception(failure);
}

} // namespace quillmar
