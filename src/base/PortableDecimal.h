#pragma once

#include "base/Decimal.h"

/// The same by means of the C library alone, for runtimes whose C++ library cannot yet.
namespace tavrel::portable {

[[nodiscard]] std::string decimalText(double number, DecimalForm form);
[[nodiscard]] std::optional<double> decimalNumber(std::string_view text);

} // namespace tavrel::portable
