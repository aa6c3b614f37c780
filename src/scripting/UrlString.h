#pragma once

#include "base/PropertyList.h"
#include "platform/TextEncodings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tavrel {

/// What becomes of a line feed.
enum class LineEndings : std::int32_t {
  carriageReturn = 1,
  carriageReturnLineFeed = 2,
  lineFeed = 3,
};

/// Whether the escaped text comes back as data.
enum class RawData { no, yes };

/// Bytes escaped for a URL, narrowly: control characters below 0x10, ten characters that no URL
/// takes, and everything above the tilde. What has a meaning in URLs ("%&#?/") passes unchanged.
[[nodiscard]] std::string escapedForUrl(std::string_view bytes, LineEndings endings);

/// A text in an encoding of the framework, escaped for a URL: a string, or data. A text that the
/// encoding cannot write at all is empty.
[[nodiscard]] PropertyList URLStringInEncoding(std::string_view text, StringEncoding encoding,
                                               LineEndings endings, RawData rawData);

} // namespace tavrel
