#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

enum class DecimalForm {
  shorter, ///< whichever of the other two is shorter
  plain,   ///< as in 0.25
  powers,  ///< as in 2.5e-01
};

/// The shortest text that reads back as the same number. A full stop divides, whatever the user's
/// language; infinities and NaN read "inf", "-inf" and "nan".
[[nodiscard]] std::string decimalText(double number, DecimalForm form);

/// The number that a whole text is: digits with at most one full stop, a minus before and a power
/// of ten behind them if need be. Nothing for any other text, and for a number that is too large,
/// or too near to 0, to be told apart.
[[nodiscard]] std::optional<double> decimalNumber(std::string_view text);

} // namespace tavrel
