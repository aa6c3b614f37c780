#import "platform/macos/Conversions.h"

namespace tavrel {

namespace {

// Lists nested deeper than any real data are refused: converting them would overflow the stack.
constexpr int deepest = 512;

std::optional<PropertyList> convertedObject(id object, int depth);

std::optional<PropertyList> convertedNumber(NSNumber* number) {
  if (CFNumberIsFloatType((__bridge CFNumberRef)number))
    return PropertyList(number.doubleValue);
  return PropertyList(std::int64_t{number.longLongValue});
}

std::optional<PropertyList> convertedArray(NSArray* array, int depth) {
  PropertyList::Array result;
  for (id each in array) {
    auto value = convertedObject(each, depth);
    if (!value)
      return std::nullopt;
    result.push_back(*std::move(value));
  }
  return PropertyList(std::move(result));
}

std::optional<PropertyList> convertedDictionary(NSDictionary* dictionary, int depth) {
  PropertyList::Dictionary result;
  for (id key in dictionary) {
    auto value = convertedObject(dictionary[key], depth);
    if (!value || ![key isKindOfClass:NSString.class])
      return std::nullopt;
    result.insert_or_assign(stringOf((NSString*)key), *std::move(value));
  }
  return PropertyList(std::move(result));
}

std::optional<PropertyList> convertedObject(id object, int depth) {
  if (!object || depth > deepest)
    return std::nullopt;
  const CFTypeID kind = CFGetTypeID((__bridge CFTypeRef)object);
  if (kind == CFBooleanGetTypeID())
    return PropertyList(bool{[object boolValue] != NO});
  if (kind == CFNumberGetTypeID())
    return convertedNumber(object);
  if (kind == CFStringGetTypeID())
    return PropertyList(stringOf((NSString*)object));
  if (kind == CFDataGetTypeID())
    return PropertyList(bytesOf(object));
  if (kind == CFDateGetTypeID())
    return PropertyList(PropertyList::Date{[object timeIntervalSinceReferenceDate]});
  if (kind == CFArrayGetTypeID())
    return convertedArray(object, depth + 1);
  return kind == CFDictionaryGetTypeID() ? convertedDictionary(object, depth + 1) : std::nullopt;
}

NSArray* nsArray(const PropertyList::Array& array) {
  NSMutableArray* result = [NSMutableArray arrayWithCapacity:array.size()];
  for (const PropertyList& each : array)
    [result addObject:nsPropertyList(each)];
  return result;
}

NSDictionary* nsDictionary(const PropertyList::Dictionary& dictionary) {
  NSMutableDictionary* result = [NSMutableDictionary dictionaryWithCapacity:dictionary.size()];
  for (const auto& [key, value] : dictionary)
    result[nsString(key)] = nsPropertyList(value);
  return result;
}

} // namespace

id nsPropertyList(const PropertyList& value) {
  switch (value.kind()) {
  case PropertyList::Kind::boolean:
    return *value.boolean() ? @YES : @NO;
  case PropertyList::Kind::integer:
    return @(*value.integer());
  case PropertyList::Kind::real:
    return @(*value.real());
  case PropertyList::Kind::string:
    return nsString(*value.string());
  case PropertyList::Kind::data:
    return nsData(*value.data());
  case PropertyList::Kind::date:
    return [NSDate dateWithTimeIntervalSinceReferenceDate:value.date()->seconds];
  case PropertyList::Kind::array:
    return nsArray(*value.array());
  case PropertyList::Kind::dictionary:
    return nsDictionary(*value.dictionary());
  }
}

std::optional<PropertyList> propertyListOf(id object) {
  return convertedObject(object, 0);
}

PropertyList::Dictionary dictionaryOf(NSDictionary* dictionary) {
  PropertyList::Dictionary result;
  for (id key in dictionary) {
    auto value = propertyListOf(static_cast<id>(dictionary[key]));
    if (value && [key isKindOfClass:NSString.class])
      result.insert_or_assign(stringOf((NSString*)key), *std::move(value));
  }
  return result;
}

std::optional<PropertyList> propertyListOf(CFTypeRef object) {
  return propertyListOf((__bridge id)object);
}

PropertyList::Dictionary dictionaryOf(CFDictionaryRef dictionary) {
  return dictionaryOf((__bridge NSDictionary*)dictionary);
}

CFOwned<CFTypeRef> cfPropertyList(const PropertyList& value) {
  return CFOwned<CFTypeRef>((__bridge_retained CFTypeRef)nsPropertyList(value));
}

} // namespace tavrel
