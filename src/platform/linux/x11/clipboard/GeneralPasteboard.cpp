#include "platform/linux/x11/clipboard/GeneralPasteboard.h"

#include "platform/linux/plists/PropertyListCodec.h"

namespace tavrel {

std::vector<std::string> GeneralPasteboard::types() {
  return thread_.call([](SystemClipboard& clipboard) { return clipboard.types(); });
}

void GeneralPasteboard::declareTypes(const std::vector<std::string>& types) {
  thread_.call([&](SystemClipboard& clipboard) { clipboard.declare(types); });
}

bool GeneralPasteboard::put(Bytes data, const std::string& type,
                            SystemClipboard::Emptiness emptiness) {
  return thread_.call([&](SystemClipboard& clipboard) {
    return clipboard.setData(std::move(data), type, emptiness);
  });
}

bool GeneralPasteboard::setData(Bytes data, const std::string& type) {
  return put(std::move(data), type, SystemClipboard::Emptiness::isContents);
}

std::optional<Bytes> GeneralPasteboard::data(const std::string& type) {
  return thread_.call([&](SystemClipboard& clipboard) { return clipboard.data(type); });
}

bool GeneralPasteboard::setString(const std::string& text, const std::string& type) {
  return put(Bytes(text.begin(), text.end()), type, SystemClipboard::Emptiness::clears);
}

std::optional<std::string> GeneralPasteboard::string(const std::string& type) {
  const auto bytes = data(type);
  return bytes ? std::optional(std::string(bytes->begin(), bytes->end())) : std::nullopt;
}

bool GeneralPasteboard::setPropertyList(const PropertyList& list, const std::string& type) {
  const auto bytes = encodePropertyList(list, PropertyListForm::xml);
  return bytes && setData(*bytes, type);
}

std::optional<PropertyList> GeneralPasteboard::propertyList(const std::string& type) {
  const auto bytes = data(type);
  return bytes ? decodePropertyList(*bytes).value : std::nullopt;
}

} // namespace tavrel
