#pragma once

#include "platform/TextEncodings.h"

#include <span>

namespace tavrel {

/// Whether a converted text starts with a byte order mark.
enum class ByteOrderMark : std::uint8_t { none, first };

/// An encoding as the platform lists it, and its name in ICU, which converts.
struct EncodingRow {
  StringEncoding number;    ///< that of the list
  StringEncoding framework; ///< that of the application framework
  const char* name;         ///< for the user
  const char* converter;    ///< in ICU
  ByteOrderMark mark = ByteOrderMark::none;
};

/// Every encoding that ICU may have a converter for, in the order of their numbers.
[[nodiscard]] std::span<const EncodingRow> encodingTable();

} // namespace tavrel
