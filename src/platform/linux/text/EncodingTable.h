#pragma once

#include "platform/TextEncodings.h"

#include <span>

namespace tavrel {

/// Whether a text starts with the mark that tells the order of its bytes.
enum class ByteOrderMark : std::uint8_t { none, first };

/// An encoding as the platform lists it, and what the library that converts calls it.
struct EncodingRow {
  StringEncoding number;    ///< that of the list
  StringEncoding framework; ///< that of the application framework
  const char* name;         ///< as people read it
  const char* converter;
  ByteOrderMark mark = ByteOrderMark::none;
};

/// Every encoding that the library may have a converter for, in the order of their numbers.
[[nodiscard]] std::span<const EncodingRow> encodingTable();

} // namespace tavrel
