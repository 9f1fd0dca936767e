#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quillmar {

/// The order in which a file manager lists \p names: by the user's locale, digits by their value ("File 9"
/// before "File 10"), upper and lower case beside each other. Returns indices into \p names; names that the
/// locale finds equal keep their order. The first 1,024 bytes of a name count, more than file systems store.
std::vector<std::size_t> naturalOrder(const std::vector<std::string_view>& names);

} // namespace quillmar
