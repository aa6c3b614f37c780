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
  return CFStringIsEncodingAvailable(encoding)
             ? static_cast<StringEncoding>(CFStringConvertEncodingToNSStringEncoding(encoding))
             : invalidEncoding;
}

std::optional<Bytes> MacTextEncodings::lossyData(std::string_view text, StringEncoding encoding) {
  const CFStringEncoding known = CFStringConvertNSStringEncodingToEncoding(encoding);
  if (known == invalidEncoding || !CFStringIsEncodingAvailable(known))
    return std::nullopt;
  @autoreleasepool {
    NSString* const units = nsText(text);
    NSData* const data = [units dataUsingEncoding:encoding allowLossyConversion:YES];
    return bytesOf(data ? data
                        : [units dataUsingEncoding:NSASCIIStringEncoding allowLossyConversion:YES]);
  }
}

} // namespace tavrel
