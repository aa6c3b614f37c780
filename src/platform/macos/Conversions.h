#pragma once

#include "base/Geometry.h"
#include "base/PropertyList.h"
#include "platform/macos/CFOwned.h"

#include <CoreFoundation/CoreFoundation.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// Never null: bytes that are not UTF-8 count as Latin 1.
[[nodiscard]] CFOwned<CFStringRef> cfString(std::string_view text);

/// Null gives the empty string; a lone surrogate becomes a replacement character.
[[nodiscard]] std::string stringOf(CFStringRef text);

/// Nothing for null and for objects of other kinds, wherever they are in it.
[[nodiscard]] std::optional<PropertyList> propertyListOf(CFTypeRef object);

/// The entries that are property lists under a string; the others are left out.
[[nodiscard]] PropertyList::Dictionary dictionaryOf(CFDictionaryRef dictionary);

[[nodiscard]] CFOwned<CFTypeRef> cfPropertyList(const PropertyList& value);

} // namespace tavrel

#ifdef __OBJC__
#import <Foundation/Foundation.h>

namespace tavrel {

/// The same between Foundation's objects; the arguments may be nil, no result of an `ns` one is.
[[nodiscard]] NSString* nsString(std::string_view text);
/// As `nsString`, but bytes that are not UTF-8 become U+FFFD one by one.
[[nodiscard]] NSString* nsText(std::string_view text);
[[nodiscard]] NSArray<NSString*>* nsStrings(const std::vector<std::string>& texts);
[[nodiscard]] NSData* nsData(const Bytes& bytes);
[[nodiscard]] id nsPropertyList(const PropertyList& value);

[[nodiscard]] std::string stringOf(NSString* text);
[[nodiscard]] std::vector<std::string> stringsOf(NSArray<NSString*>* texts);
[[nodiscard]] Bytes bytesOf(NSData* data);
[[nodiscard]] std::optional<PropertyList> propertyListOf(id object);
[[nodiscard]] PropertyList::Dictionary dictionaryOf(NSDictionary* dictionary);

/// The file URL of a path; nil for one that is not absolute or contains a NUL, which would raise an
/// exception.
[[nodiscard]] NSURL* fileUrl(const std::string& path);
/// Nil for a text that is no URL, whatever the system would make of it.
[[nodiscard]] NSURL* nsUrl(const std::string& url);

[[nodiscard]] inline NSPoint nsPoint(Point point) {
  return NSMakePoint(point.x, point.y);
}
[[nodiscard]] inline NSSize nsSize(Size size) {
  return NSMakeSize(size.width, size.height);
}
[[nodiscard]] inline Point pointOf(NSPoint point) {
  return {point.x, point.y};
}
[[nodiscard]] inline Size sizeOf(NSSize size) {
  return {size.width, size.height};
}

} // namespace tavrel
#endif
