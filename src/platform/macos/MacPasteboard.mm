#import "platform/macos/MacPasteboard.h"

#import "platform/macos/Conversions.h"

namespace tavrel {

namespace {

// Deprecated, but simple copying programs and the services menu still use these names.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
NSArray<NSString*>* systemTypeNames() {
  return @[
    NSStringPboardType, NSRTFPboardType, NSRTFDPboardType, NSHTMLPboardType, NSPDFPboardType,
    NSTIFFPboardType, NSPICTPboardType, NSURLPboardType, NSFilenamesPboardType
  ];
}
#pragma clang diagnostic pop

NSArray<NSString*>* portTypeNames() {
  return nsStrings({pasteboardType::string, pasteboardType::rtf, pasteboardType::rtfd,
                    pasteboardType::html, pasteboardType::pdf, pasteboardType::tiff,
                    pasteboardType::pict, pasteboardType::url, pasteboardType::filenames});
}

NSString* systemType(const std::string& type) {
  static NSDictionary<NSString*, NSString*>* const table =
      [NSDictionary dictionaryWithObjects:systemTypeNames() forKeys:portTypeNames()];
  NSString* const name = nsString(type);
  NSString* const known = table[name];
  return known ? known : name;
}

std::string portType(NSString* type) {
  static NSDictionary<NSString*, NSString*>* const table =
      [NSDictionary dictionaryWithObjects:portTypeNames() forKeys:systemTypeNames()];
  NSString* const known = table[type];
  return stringOf(known ? known : type);
}

// The framework raises when the program that owns the contents, or the server, does not answer.
id answerOf(id (^question)(void)) {
  @try {
    return question();
  } @catch (NSException*) {
    return nil;
  }
}

// Each old name is listed beside the uniform type identifier for it: one of them is enough.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
bool isListedByOldName(NSString* type, NSArray<NSString*>* types) {
  NSString* const old = CFBridgingRelease(
      UTTypeCopyPreferredTagWithClass((__bridge CFStringRef)type, kUTTagClassNSPboardType));
  return old && ![old isEqualToString:type] && [types containsObject:old];
}
#pragma clang diagnostic pop

NSData* xmlData(const PropertyList& list) {
  return [NSPropertyListSerialization dataWithPropertyList:nsPropertyList(list)
                                                    format:NSPropertyListXMLFormat_v1_0
                                                   options:0
                                                     error:nil];
}

bool putData(NSPasteboard* pasteboard, NSData* data, const std::string& type) {
  if (!data)
    return false;
  NSNumber* const taken = answerOf(^id {
    const bool declared = [pasteboard.types containsObject:systemType(type)];
    return @(declared && [pasteboard setData:data forType:systemType(type)]);
  });
  return taken.boolValue;
}

} // namespace

std::vector<std::string> MacPasteboard::types() {
  NSArray<NSString*>* const types = answerOf(^id {
    return pasteboard_.types;
  });
  std::vector<std::string> result;
  for (NSString* type in types)
    if (!isListedByOldName(type, types))
      result.push_back(portType(type));
  return result;
}

void MacPasteboard::declareTypes(const std::vector<std::string>& types) {
  NSMutableArray<NSString*>* const declared = [NSMutableArray array];
  for (const std::string& type : types)
    [declared addObject:systemType(type)];
  answerOf(^id {
    [pasteboard_ declareTypes:declared owner:nil];
    return nil;
  });
}

bool MacPasteboard::setData(Bytes data, const std::string& type) {
  return putData(pasteboard_, nsData(data), type);
}

std::optional<Bytes> MacPasteboard::data(const std::string& type) {
  NSString* const name = systemType(type);
  NSData* const data = answerOf(^id {
    return [pasteboard_ dataForType:name];
  });
  return data ? std::optional(bytesOf(data)) : std::nullopt;
}

bool MacPasteboard::setString(const std::string& text, const std::string& type) {
  return putData(pasteboard_, [nsString(text) dataUsingEncoding:NSUTF8StringEncoding], type);
}

std::optional<std::string> MacPasteboard::string(const std::string& type) {
  NSString* const name = systemType(type);
  NSString* const text = answerOf(^id {
    return [pasteboard_ stringForType:name];
  });
  return text ? std::optional(stringOf(text)) : std::nullopt;
}

bool MacPasteboard::setPropertyList(const PropertyList& list, const std::string& type) {
  return putData(pasteboard_, xmlData(list), type);
}

std::optional<PropertyList> MacPasteboard::propertyList(const std::string& type) {
  NSString* const name = systemType(type);
  return propertyListOf(answerOf(^id {
    return [pasteboard_ propertyListForType:name];
  }));
}

std::int64_t MacPasteboard::changeCount() {
  NSNumber* const count = answerOf(^id {
    return @(pasteboard_.changeCount);
  });
  return count.longLongValue;
}

} // namespace tavrel
