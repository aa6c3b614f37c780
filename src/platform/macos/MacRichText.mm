#import "platform/macos/MacRichText.h"

#import "platform/macos/Conversions.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <string_view>

namespace tavrel {

namespace {

// The system reads any bytes at all as text without words.
bool beginWith(std::string_view beginning, const Bytes& bytes) {
  return bytes.size() >= beginning.size() &&
         std::equal(beginning.begin(), beginning.end(), bytes.begin());
}

bool beginsAsRtf(const Bytes& bytes) {
  return beginWith("{\\rtf", bytes);
}

std::optional<std::string> wordsOf(NSAttributedString* text) {
  return text ? std::optional(stringOf(text.string)) : std::nullopt;
}

} // namespace

std::optional<std::string> MacRichText::plainTextOfRtf(const Bytes& rtf) {
  if (!beginsAsRtf(rtf))
    return std::nullopt;
  return wordsOf([[NSAttributedString alloc] initWithRTF:nsData(rtf) documentAttributes:nil]);
}

// RTFD data are an archive of files: reading one that is damaged is known to raise.
std::optional<std::string> MacRichText::plainTextOfRtfd(const Bytes& rtfd) {
  if (!beginWith("rtfd", rtfd))
    return plainTextOfRtf(rtfd);
  @try {
    return wordsOf([[NSAttributedString alloc] initWithRTFD:nsData(rtfd) documentAttributes:nil]);
  } @catch (NSException*) {
    return std::nullopt;
  }
}

} // namespace tavrel
