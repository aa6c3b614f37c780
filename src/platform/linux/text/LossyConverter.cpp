#include "platform/linux/text/LossyConverter.h"

#include "base/AsciiForms.h"

#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/unorm2.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>

namespace tavrel {

namespace {

constexpr std::size_t unitsAtATime = std::size_t{1} << 20;
constexpr std::size_t bytesAtATime = std::size_t{1} << 16;

struct ConverterCloser {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using ConverterHandle = std::unique_ptr<UConverter, ConverterCloser>;

ConverterHandle openConverter(const char* name) {
  UErrorCode error = U_ZERO_ERROR;
  return ConverterHandle(ucnv_open(name, &error));
}

struct Conversion {
  LostCharacter lost;
  bool* metMark; ///< an accent that stands by itself, and that the encoding does not have
};

// An accent, or something that is only there to tell how others look.
bool isMark(UChar32 character) {
  return u_charType(character) == U_NON_SPACING_MARK ||
         u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

std::u16string withoutMarks(std::u16string_view text) {
  std::u16string kept;
  for (const char16_t unit : text)
    if (!isMark(unit))
      kept += unit;
  return kept;
}

// What the character is made of, when that is ASCII but for its accents. The library keeps few
// bytes that did not fit, so that a form of many characters is none.
std::u16string decomposedForm(UChar32 character) {
  UErrorCode error = U_ZERO_ERROR;
  std::array<char16_t, 8> parts{};
  const std::int32_t length =
      unorm2_getDecomposition(unorm2_getNFKDInstance(&error), character, parts.data(),
                              static_cast<std::int32_t>(parts.size()), &error);
  if (U_FAILURE(error) || length <= 0)
    return {};
  const std::u16string form = withoutMarks({parts.data(), static_cast<std::size_t>(length)});
  const bool isAscii = std::ranges::all_of(form, [](char16_t unit) { return unit < 0x80; });
  return isAscii ? form : std::u16string();
}

std::u16string substituteFor(UChar32 character, std::int32_t units, const Conversion& conversion) {
  const std::string_view form = asciiForm(static_cast<char32_t>(character));
  if (!form.empty())
    return {form.begin(), form.end()};
  if (isMark(character)) {
    *conversion.metMark = true;
    return {};
  }
  if (std::u16string parts = decomposedForm(character); !parts.empty())
    return parts;
  const bool isOne = conversion.lost == LostCharacter::onePerCharacter;
  return std::u16string(isOne ? 1U : static_cast<std::size_t>(units), u'?');
}

// Called by the library for each character that the encoding does not have.
void substitute(const void* context, UConverterFromUnicodeArgs* arguments, const UChar*,
                std::int32_t units, UChar32 character, UConverterCallbackReason reason,
                UErrorCode* error) {
  if (reason > UCNV_IRREGULAR)
    return;
  const std::u16string text =
      substituteFor(character, units, *static_cast<const Conversion*>(context));
  const UChar* at = text.data();
  *error = U_ZERO_ERROR;
  ucnv_cbFromUWriteUChars(arguments, &at, at + text.size(), 0, error);
}

// The library takes no more than a part of a very long text at once, and keeps what lies between.
void convertPart(UConverter* converter, std::u16string_view part, bool isLast, Bytes& bytes) {
  std::array<char, bytesAtATime> buffer{};
  const UChar* at = part.data();
  UErrorCode error = U_BUFFER_OVERFLOW_ERROR;
  while (error == U_BUFFER_OVERFLOW_ERROR) {
    char* target = buffer.data();
    error = U_ZERO_ERROR;
    ucnv_fromUnicode(converter, &target, buffer.data() + buffer.size(), &at,
                     part.data() + part.size(), nullptr, isLast ? 1 : 0, &error);
    bytes.insert(bytes.end(), buffer.data(), target);
  }
}

Bytes convertAll(UConverter* converter, std::u16string_view text, const Conversion& conversion) {
  UErrorCode error = U_ZERO_ERROR;
  ucnv_reset(converter);
  ucnv_setFromUCallBack(converter, substitute, &conversion, nullptr, nullptr, &error);
  Bytes bytes;
  bytes.reserve(text.size());
  for (; text.size() > unitsAtATime; text.remove_prefix(unitsAtATime))
    convertPart(converter, text.substr(0, unitsAtATime), false, bytes);
  convertPart(converter, text, true, bytes);
  return bytes;
}

// Letters with their accents as one character each, where there is such a character. A few others
// get longer.
std::optional<std::u16string> composed(std::u16string_view text) {
  constexpr std::size_t longest = std::numeric_limits<std::int32_t>::max();
  UErrorCode error = U_ZERO_ERROR;
  const UNormalizer2* form = unorm2_getNFCInstance(&error);
  std::u16string result(text.size(), u'\0');
  for (int attempt = 0; attempt < 2 && text.size() <= longest; ++attempt) {
    error = U_ZERO_ERROR;
    const std::int32_t needed =
        unorm2_normalize(form, text.data(), static_cast<std::int32_t>(text.size()), result.data(),
                         static_cast<std::int32_t>(result.size()), &error);
    if (U_FAILURE(error) && error != U_BUFFER_OVERFLOW_ERROR)
      return std::nullopt;
    result.resize(static_cast<std::size_t>(needed));
    if (error != U_BUFFER_OVERFLOW_ERROR)
      return result;
  }
  return std::nullopt;
}

} // namespace

bool hasConverter(const char* name) {
  return openConverter(name) != nullptr;
}

// A converter does not put a letter and its accent together; that costs time only for a text that
// has such accents.
std::optional<Bytes> convertLossily(std::u16string_view text, const char* converter,
                                    LostCharacter lost) {
  const ConverterHandle handle = openConverter(converter);
  if (!handle)
    return std::nullopt;
  bool metMark = false;
  Bytes bytes = convertAll(handle.get(), text, {lost, &metMark});
  if (!metMark)
    return bytes;
  const auto whole = composed(text);
  return whole ? convertAll(handle.get(), *whole, {lost, &metMark}) : bytes;
}

} // namespace tavrel
