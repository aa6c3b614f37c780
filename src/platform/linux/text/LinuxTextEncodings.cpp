#include "platform/linux/text/LinuxTextEncodings.h"

#include "base/Utf8.h"
#include "platform/linux/text/EncodingTable.h"
#include "platform/linux/text/LossyConverter.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr StringEncoding frameworkUtf8 = 4;
constexpr StringEncoding frameworkLatin1 = 5;
constexpr char16_t byteOrderMark = 0xFEFF;

// Computed once: the installed converters do not change while the program runs.
const std::vector<EncodingRow>& convertibleEncodings() {
  static const std::vector<EncodingRow> rows = [] {
    std::vector<EncodingRow> found;
    for (const EncodingRow& row : encodingTable())
      if (hasConverter(row.converter))
        found.push_back(row);
    return found;
  }();
  return rows;
}

using NumberOfARow = StringEncoding EncodingRow::*;

const EncodingRow* rowOf(StringEncoding encoding, NumberOfARow number) {
  const auto& rows = convertibleEncodings();
  const auto found = std::ranges::find(rows, encoding, number);
  return found == rows.end() ? nullptr : &*found;
}

Bytes wellFormedUtf8(std::string_view text) {
  if (isUtf8(text))
    return {text.begin(), text.end()};
  const std::string repaired = utf8FromUtf16(utf16FromUtf8(text));
  return {repaired.begin(), repaired.end()};
}

} // namespace

std::vector<StringEncoding> LinuxTextEncodings::available() {
  std::vector<StringEncoding> numbers;
  for (const EncodingRow& row : convertibleEncodings())
    numbers.push_back(row.number);
  numbers.push_back(invalidEncoding);
  return numbers;
}

std::optional<std::string> LinuxTextEncodings::nameOf(StringEncoding encoding) {
  const EncodingRow* row = rowOf(encoding, &EncodingRow::number);
  return row ? std::optional<std::string>(row->name) : std::nullopt;
}

StringEncoding LinuxTextEncodings::frameworkEncoding(StringEncoding encoding) {
  const EncodingRow* row = rowOf(encoding, &EncodingRow::number);
  return row ? row->framework : invalidEncoding;
}

std::optional<Bytes> LinuxTextEncodings::lossyData(std::string_view text, StringEncoding encoding) {
  const EncodingRow* row = rowOf(encoding, &EncodingRow::framework);
  if (!row)
    return std::nullopt;
  if (encoding == frameworkUtf8)
    return wellFormedUtf8(text);
  std::u16string units = utf16FromUtf8(text);
  if (row->mark == ByteOrderMark::first)
    units.insert(units.begin(), byteOrderMark);
  const auto lost =
      encoding == frameworkLatin1 ? LostCharacter::onePerUnit : LostCharacter::onePerCharacter;
  return convertLossily(units, row->converter, lost);
}

} // namespace tavrel
