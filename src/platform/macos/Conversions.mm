#import "platform/macos/Conversions.h"

#include "base/Url.h"
#include "base/Utf8.h"

namespace tavrel {

NSString* nsString(std::string_view text) {
  const auto decoded = [text](NSStringEncoding encoding) {
    return [[NSString alloc] initWithBytes:text.data() length:text.size() encoding:encoding];
  };
  if (text.empty())
    return @"";
  NSString* exact = decoded(NSUTF8StringEncoding);
  return exact ? exact : decoded(NSISOLatin1StringEncoding);
}

NSString* nsText(std::string_view text) {
  const std::u16string units = utf16FromUtf8(text);
  return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(units.data())
                                 length:units.size()];
}

NSArray<NSString*>* nsStrings(const std::vector<std::string>& texts) {
  NSMutableArray<NSString*>* result = [NSMutableArray arrayWithCapacity:texts.size()];
  for (const std::string& each : texts)
    [result addObject:nsString(each)];
  return result;
}

NSData* nsData(const Bytes& bytes) {
  return [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

// The system has no UTF-8 for a lone surrogate.
std::string stringOf(NSString* text) {
  if (NSData* const bytes = [text dataUsingEncoding:NSUTF8StringEncoding])
    return bytes.length > 0 ? std::string(static_cast<const char*>(bytes.bytes), bytes.length)
                            : std::string();
  std::u16string units(text.length, u'\0');
  [text getCharacters:reinterpret_cast<unichar*>(units.data()) range:NSMakeRange(0, units.size())];
  return utf8FromUtf16(units);
}

std::vector<std::string> stringsOf(NSArray<NSString*>* texts) {
  std::vector<std::string> result;
  for (NSString* each in texts)
    result.push_back(stringOf(each));
  return result;
}

Bytes bytesOf(NSData* data) {
  const auto* bytes = static_cast<const std::uint8_t*>(data.bytes);
  return {bytes, bytes + data.length};
}

// With isDirectory:NO the system neither checks the file system nor appends a slash to a link to a
// folder.
NSURL* fileUrl(const std::string& path) {
  if (!path.starts_with('/') || path.find('\0') != std::string::npos)
    return nil;
  return [NSURL fileURLWithPath:nsString(path) isDirectory:NO];
}

NSURL* nsUrl(const std::string& url) {
  return isUrl(url) ? [NSURL URLWithString:nsString(url)] : nil;
}

CFOwned<CFStringRef> cfString(std::string_view text) {
  return CFOwned<CFStringRef>((__bridge_retained CFStringRef)nsString(text));
}

std::string stringOf(CFStringRef text) {
  return stringOf((__bridge NSString*)text);
}

} // namespace tavrel
