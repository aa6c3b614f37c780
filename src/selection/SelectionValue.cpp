#include "selection/SelectionValue.h"

#include "platform/Platform.h"
#include "platform/RichText.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

std::optional<PropertyList> asValue(std::optional<std::string> text) {
  return text ? std::optional<PropertyList>(*std::move(text)) : std::nullopt;
}

PropertyList imageValue(Pasteboard& selection) {
  for (const char* type : {pasteboardType::tiff, pasteboardType::pict})
    if (auto data = selection.data(type))
      return *std::move(data);
  return "Unknown Object";
}

} // namespace

std::optional<PropertyList> selectionValue() {
  Pasteboard& selection = privatePasteboard();
  if (auto files = capturedFileList())
    return files;
  if (selection.data(pasteboardType::url))
    return asValue(selection.string(pasteboardType::url));
  if (const auto rtfd = selection.data(pasteboardType::rtfd))
    return asValue(platform().richText.plainTextOfRtfd(*rtfd));
  if (const auto rtf = selection.data(pasteboardType::rtf))
    return asValue(platform().richText.plainTextOfRtf(*rtf));
  if (auto text = selection.string(pasteboardType::string))
    return asValue(std::move(text));
  return imageValue(selection);
}

} // namespace tavrel
