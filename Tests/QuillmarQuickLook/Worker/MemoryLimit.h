#pragma once

namespace quillmar {

/// Whether a confined process's memory is limited: not under the sanitizer of addresses, which reserves
/// terabytes.
#if defined(QUILLMAR_SHADOW_MEMORY)
inline constexpr bool isMemoryLimited = false;
#else
inline constexpr bool isMemoryLimited = true;
#endif

} // namespace quillmar
