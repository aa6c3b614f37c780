#include "scripting/UrlString.h"

#include "platform/Platform.h"

#include <array>
#include <cstring>

namespace tavrel {

namespace {

// Bitwise operators instead of && and ||, so that the compiler vectorises the loop over a block.
constexpr bool isEscaped(unsigned char byte) {
  const bool isAngle = (byte & 0xFDU) == '<'; // or '>'
  const bool isInner =
      (byte == ' ') | (byte == '[') | (byte == ']') | (byte == '^') | (byte == '`');
  const bool isLast = (byte >= '{') & (byte != '~');
  return (byte < 0x10) | isAngle | isInner | isLast;
}

/// What becomes of a byte: up to six characters, and how many they are.
struct Escape {
  std::array<char, 7> characters{};
  std::uint8_t length = 0;
};
using Escapes = std::array<Escape, 256>;

constexpr Escape escapeOf(unsigned char byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  if (!isEscaped(byte))
    return {{static_cast<char>(byte)}, 1};
  return {{'%', digits[byte >> 4U], digits[byte & 0x0FU]}, 3};
}

constexpr Escapes escapesWith(Escape lineFeed) {
  Escapes escapes{};
  for (std::size_t byte = 0; byte < escapes.size(); ++byte)
    escapes.at(byte) = escapeOf(static_cast<unsigned char>(byte));
  escapes.at('\n') = lineFeed;
  return escapes;
}

constexpr Escapes lineFeedStays = escapesWith(escapeOf('\n'));
constexpr Escapes toCarriageReturn = escapesWith(escapeOf('\r'));
constexpr Escapes toBoth = escapesWith({{'%', '0', 'D', '%', '0', 'A'}, 6});

const Escapes& escapesFor(LineEndings endings) {
  if (endings == LineEndings::lineFeed)
    return lineFeedStays;
  return endings == LineEndings::carriageReturn ? toCarriageReturn : toBoth;
}

constexpr std::size_t blockSize = 64;
constexpr std::size_t blocksAtATime = 64;
using Buffer = std::array<char, blockSize * blocksAtATime * 6 + sizeof(Escape)>;

// Over a whole block, whose size the compiler knows: it vectorises the loop.
std::size_t escapesInBlock(const char* block) {
  std::uint8_t count = 0;
  for (std::size_t i = 0; i < blockSize; ++i)
    count = static_cast<std::uint8_t>(count + isEscaped(static_cast<unsigned char>(block[i])));
  return count;
}

// Every byte copies a whole table entry and advances by its length, so the next one overwrites what
// was too much: there is no branch to mispredict.
char* putEscaped(char* to, std::string_view bytes, const Escapes& escapes) {
  for (const char each : bytes) {
    const Escape& escape = escapes[static_cast<unsigned char>(each)];
    std::memcpy(to, &escape, sizeof escape);
    to += escape.length;
  }
  return to;
}

char* putBlock(char* to, std::string_view block, const Escapes& escapes) {
  if (block.size() < blockSize || escapesInBlock(block.data()) > 0)
    return putEscaped(to, block, escapes);
  std::memcpy(to, block.data(), blockSize);
  return to + blockSize;
}

// By blocks as well: a loop of unknown length is not vectorised.
std::size_t lineFeedsInBlock(const char* block) {
  std::uint8_t count = 0;
  for (std::size_t i = 0; i < blockSize; ++i)
    count = static_cast<std::uint8_t>(count + (block[i] == '\n' ? 1 : 0));
  return count;
}

std::size_t escapedSize(std::string_view bytes, const Escapes& escapes) {
  const std::size_t lineFeed = escapes['\n'].length;
  std::size_t size = 0;
  for (; bytes.size() >= blockSize; bytes.remove_prefix(blockSize)) {
    size += blockSize + 2 * escapesInBlock(bytes.data());
    size += lineFeed == 3 ? 0 : (lineFeed - 3) * lineFeedsInBlock(bytes.data());
  }
  for (const char each : bytes)
    size += escapes[static_cast<unsigned char>(each)].length;
  return size;
}

} // namespace

std::string escapedForUrl(std::string_view bytes, LineEndings endings) {
  const Escapes& escapes = escapesFor(endings);
  std::string escaped;
  escaped.reserve(escapedSize(bytes, escapes));
  Buffer buffer;
  while (!bytes.empty()) {
    char* to = buffer.data();
    for (std::size_t i = 0; i < blocksAtATime && !bytes.empty(); ++i) {
      const std::string_view block = bytes.substr(0, blockSize);
      to = putBlock(to, block, escapes);
      bytes.remove_prefix(block.size());
    }
    escaped.append(buffer.data(), to);
  }
  return escaped;
}

PropertyList URLStringInEncoding(std::string_view text, StringEncoding encoding,
                                 LineEndings endings, RawData rawData) {
  const auto encoded = platform().textEncodings.lossyData(text, encoding).value_or(Bytes());
  const std::string_view bytes(reinterpret_cast<const char*>(encoded.data()), encoded.size());
  std::string escaped = escapedForUrl(bytes, endings);
  if (rawData == RawData::yes)
    return Bytes(escaped.begin(), escaped.end());
  return escaped;
}

} // namespace tavrel
