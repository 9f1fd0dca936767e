#pragma once

#include "Platform/Data.h"

#include <cstdlib>

namespace quillmar {

/// What a target does with one input.
void fuzz(DataView input);

/// Ends the process when a promise is broken; the fuzzer keeps the input that broke it.
inline void require(bool promise) {
    if (!promise) std::abort();
}

} // namespace quillmar
