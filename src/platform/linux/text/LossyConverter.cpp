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

constexpr std::size_t chunkUnits = std::size_t{1} << 20;
constexpr std::size_t chunkBytes = std::size_t{1} << 16;

struct ConverterCloser {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using ConverterHandle = std::unique_ptr<UConverter, ConverterCloser>;

ConverterHandle openConverter(const char* name) {
  UErrorCode error = U_ZERO_ERROR;
  return ConverterHandle(ucnv_open(name, &error));
}

/// What the callback for missing characters needs to know, and what it reports.
struct Substitution {
  LostCharacter lost;
  bool* metMark; ///< set for a combining accent that the encoding does not have
};

// A combining accent, or a character without a shape of its own (a joiner, a variation selector).
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

// The compatibility decomposition without accents, when that is ASCII. At most eight characters: a
// callback may write no more than ICU's overflow buffer holds, 32 bytes.
std::u16string decomposedForm(UChar32 character) {
  UErrorCode error = U_ZERO_ERROR;
  std::array<char16_t, 8> decomposed{};
  const std::int32_t length =
      unorm2_getDecomposition(unorm2_getNFKDInstance(&error), character, decomposed.data(),
                              static_cast<std::int32_t>(decomposed.size()), &error);
  if (U_FAILURE(error) || length <= 0)
    return {};
  const std::u16string form = withoutMarks({decomposed.data(), static_cast<std::size_t>(length)});
  const bool isAscii = std::ranges::all_of(form, [](char16_t unit) { return unit < 0x80; });
  return isAscii ? form : std::u16string();
}

std::u16string substituteFor(UChar32 character, std::int32_t units,
                             const Substitution& substitution) {
  const std::string_view form = asciiForm(static_cast<char32_t>(character));
  if (!form.empty())
    return {form.begin(), form.end()};
  if (isMark(character)) {
    *substitution.metMark = true;
    return {};
  }
  if (std::u16string letters = decomposedForm(character); !letters.empty())
    return letters;
  const bool isOne = substitution.lost == LostCharacter::onePerCharacter;
  return std::u16string(isOne ? 1U : static_cast<std::size_t>(units), u'?');
}

// ICU calls this for each character that the encoding does not have.
void substitute(const void* context, UConverterFromUnicodeArgs* arguments, const UChar*,
                std::int32_t units, UChar32 character, UConverterCallbackReason reason,
                UErrorCode* error) {
  if (reason > UCNV_IRREGULAR)
    return;
  const std::u16string text =
      substituteFor(character, units, *static_cast<const Substitution*>(context));
  const UChar* at = text.data();
  *error = U_ZERO_ERROR;
  ucnv_cbFromUWriteUChars(arguments, &at, at + text.size(), 0, error);
}

// A very long text goes through in chunks; ICU keeps the state of the conversion between them.
void convertChunk(UConverter* converter, std::u16string_view chunk, bool isLast, Bytes& bytes) {
  std::array<char, chunkBytes> buffer{};
  const UChar* at = chunk.data();
  UErrorCode error = U_BUFFER_OVERFLOW_ERROR;
  while (error == U_BUFFER_OVERFLOW_ERROR) {
    char* target = buffer.data();
    error = U_ZERO_ERROR;
    ucnv_fromUnicode(converter, &target, buffer.data() + buffer.size(), &at,
                     chunk.data() + chunk.size(), nullptr, isLast ? 1 : 0, &error);
    bytes.insert(bytes.end(), buffer.data(), target);
  }
}

Bytes convertAll(UConverter* converter, std::u16string_view text,
                 const Substitution& substitution) {
  UErrorCode error = U_ZERO_ERROR;
  ucnv_reset(converter);
  ucnv_setFromUCallBack(converter, substitute, &substitution, nullptr, nullptr, &error);
  Bytes bytes;
  bytes.reserve(text.size());
  for (; text.size() > chunkUnits; text.remove_prefix(chunkUnits))
    convertChunk(converter, text.substr(0, chunkUnits), false, bytes);
  convertChunk(converter, text, true, bytes);
  return bytes;
}

// The composed form (NFC): letters with their accents as one character each. A few characters get
// longer by it, so the first attempt may not have enough room.
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

// ICU's converters do not compose a letter and a combining accent. Composing costs time, so it is
// done only when the encoding did not have such an accent.
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
