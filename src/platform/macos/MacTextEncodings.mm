#import "platform/macos/MacTextEncodings.h"

#import "platform/macos/Conversions.h"

namespace tavrel {

static_assert(invalidEncoding == kCFStringEncodingInvalidId);

std::vector<StringEncoding> MacTextEncodings::available() {
  std::vector<StringEncoding> result;
  for (const CFStringEncoding* each = CFStringGetListOfAvailableEncodings();
       *each != kCFStringEncodingInvalidId; ++each)
    result.push_back(*each);
  result.push_back(invalidEncoding);
  return result;
}

std::optional<std::string> MacTextEncodings::nameOf(StringEncoding encoding) {
  CFStringRef name =
      CFStringIsEncodingAvailable(encoding) ? CFStringGetNameOfEncoding(encoding) : nullptr;
  return name ? std::optional(stringOf(name)) : std::nullopt;
}

StringEncoding MacTextEncodings::frameworkEncoding(StringEncoding encoding) {
  return static_cast<StringEncoding>(CFStringConvertEncodingToNSStringEncoding(encoding));
}

std::optional<Bytes> MacTextEncodings::lossyData(std::string_view text, StringEncoding encoding) {
  if (!CFStringIsEncodingAvailable(CFStringConvertNSStringEncodingToEncoding(encoding)))
    return std::nullopt;
  NSData* const data = [nsString(text) dataUsingEncoding:encoding allowLossyConversion:YES];
  return data ? std::optional(bytesOf(data)) : std::nullopt;
}

} // namespace tavrel
