#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// A text encoding by the number the platform lists it under.
using StringEncoding = std::uint32_t;

/// The end of the platform's list, and no encoding.
inline constexpr StringEncoding invalidEncoding = 0xFFFFFFFF;

/// The ways to write text as bytes.
class TextEncodings {
public:
  virtual ~TextEncodings() = default;

  /// Every encoding that text can be converted to, in the platform's order, and `invalidEncoding`
  /// at the end.
  [[nodiscard]] virtual std::vector<StringEncoding> available() = 0;

  /// Its name for users, as "Unicode (UTF-8)"; nothing for a number that is not listed.
  [[nodiscard]] virtual std::optional<std::string> nameOf(StringEncoding encoding) = 0;

  /// The number that the application framework uses for the same encoding; `invalidEncoding` for
  /// a number that is not listed.
  [[nodiscard]] virtual StringEncoding frameworkEncoding(StringEncoding encoding) = 0;

  /// The text in an encoding of the framework. What that cannot hold is written in ASCII (Á as A,
  /// © as (C)), else as a question mark; bytes of the text that are no UTF-8 count as U+FFFD.
  /// Nothing for a number that names no encoding, and never for a text.
  [[nodiscard]] virtual std::optional<Bytes> lossyData(std::string_view text,
                                                       StringEncoding encoding) = 0;
};

} // namespace tavrel
