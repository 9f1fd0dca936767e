#pragma once

#include <string>

namespace quillmar {

/// \p value with exactly \p digits digits after a point, whatever the locale: for numbers inside styles.
std::string decimalText(double value, int digits);

} // namespace quillmar
