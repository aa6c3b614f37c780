#include "platform/linux/LinuxPasteboards.h"

#include "platform/linux/PropertyListCodec.h"

namespace tavrel {

namespace {
Bytes asXml(const PropertyList& list) {
  return encodePropertyList(list, PropertyListForm::xml).value_or(Bytes());
}

std::optional<PropertyList> fromXml(const Bytes& bytes) {
  return decodePropertyList(bytes).value;
}
} // namespace

LinuxPasteboards::LinuxPasteboards() : pasteboards_({asXml, fromXml}) {}

} // namespace tavrel
