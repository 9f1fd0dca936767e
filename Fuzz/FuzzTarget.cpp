#include "Fuzz/FuzzTarget.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quillmar::fuzz({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
