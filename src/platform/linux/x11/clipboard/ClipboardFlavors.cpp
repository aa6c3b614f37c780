#include "platform/linux/x11/clipboard/ClipboardFlavors.h"

#include "base/LocalUrl.h"
#include "platform/Pasteboards.h"
#include "platform/linux/plists/PropertyListCodec.h"
#include "platform/linux/x11/clipboard/ClipboardText.h"
#include "platform/linux/x11/clipboard/SelectionTarget.h"

#include <algorithm>

namespace tavrel {

namespace {

struct TargetData {
  SelectionTarget target;
  SharedBytes bytes;
};

bool sameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

// The first of these targets that has data in format 8. Programs differ in the case of the names.
std::optional<TargetData> firstOf(const ClipboardContents& targets,
                                  std::initializer_list<std::string_view> names) {
  for (const std::string_view wanted : names)
    for (const std::string& name : targets.names) {
      const auto target = selectionTargetNamed(name);
      const SharedBytes bytes = target ? targets.dataOf(name) : nullptr;
      if (bytes && target->format == 8 && sameWord(target->target, wanted))
        return TargetData{*target, bytes};
    }
  return std::nullopt;
}

std::optional<TargetData> textTarget(const ClipboardContents& targets) {
  return firstOf(targets,
                 {"text/plain;charset=utf-8", "UTF8_STRING", "text/plain", "STRING", "TEXT"});
}

std::optional<TargetData> imageTargetOf(const ClipboardContents& targets) {
  return firstOf(targets,
                 {"image/tiff", "image/png", "image/bmp", "image/jpeg", "image/gif", "image/webp"});
}

Bytes bytesOf(const std::string& text) {
  return {text.begin(), text.end()};
}

std::vector<std::string> urlsOn(const ClipboardContents& targets) {
  if (const auto list = firstOf(targets, {"text/uri-list", "x-special/gnome-copied-files"}))
    return urlsOfList(clipboardText(*list->bytes, {}));
  if (const auto link = firstOf(targets, {"text/x-moz-url"}))
    return urlsOfList(clipboardTextUtf16(*link->bytes));
  return {};
}

PropertyList::Array pathsOn(const ClipboardContents& targets) {
  PropertyList::Array paths;
  for (const std::string& url : urlsOn(targets))
    if (auto path = localPathOfUrl(url))
      paths.emplace_back(*std::move(path));
  return paths;
}

std::optional<Bytes> textData(const std::optional<TargetData>& text) {
  return text ? std::optional(bytesOf(clipboardText(*text->bytes, text->target.type)))
              : std::nullopt;
}

std::optional<Bytes> plainData(const std::optional<TargetData>& found) {
  return found ? std::optional(*found->bytes) : std::nullopt;
}

std::optional<Bytes> fileData(const ClipboardContents& targets) {
  const PropertyList::Array paths = pathsOn(targets);
  return paths.empty() ? std::nullopt : encodePropertyList(paths, PropertyListForm::xml);
}

std::optional<Bytes> urlData(const ClipboardContents& targets) {
  const std::vector<std::string> urls = urlsOn(targets);
  return urls.empty() || !pathsOn(targets).empty() ? std::nullopt
                                                   : std::optional(bytesOf(urls.front()));
}

// Targets by which password managers ask clipboard managers to keep nothing.
bool isConcealed(const ClipboardContents& targets) {
  return std::any_of(targets.names.begin(), targets.names.end(), [&](const std::string& name) {
    const auto target = selectionTargetNamed(name);
    if (!target)
      return false;
    if (target->target == "x-kde-passwordManagerHint") {
      const SharedBytes hint = targets.dataOf(name);
      return !hint || clipboardText(*hint, {}) == "secret";
    }
    return target->target == "application/x-nspasteboard-concealed-type" ||
           target->target == pasteboardType::concealed;
  });
}

} // namespace

std::optional<Bytes> flavorData(const ClipboardContents& targets, const std::string& name) {
  if (name == pasteboardType::string)
    return textData(textTarget(targets));
  if (name == pasteboardType::rtf)
    return plainData(firstOf(targets, {"text/rtf", "application/rtf", "text/richtext"}));
  if (name == pasteboardType::html)
    return textData(firstOf(targets, {"text/html"}));
  if (name == pasteboardType::pdf)
    return plainData(firstOf(targets, {"application/pdf"}));
  if (name == pasteboardType::tiff)
    return plainData(imageTargetOf(targets));
  if (name == pasteboardType::url)
    return urlData(targets);
  return name == pasteboardType::filenames ? fileData(targets) : std::nullopt;
}

std::vector<std::string> flavorsOf(const ClipboardContents& targets) {
  std::vector<std::string> names;
  for (const char* name :
       {pasteboardType::string, pasteboardType::rtf, pasteboardType::html, pasteboardType::pdf,
        pasteboardType::tiff, pasteboardType::url, pasteboardType::filenames})
    if (flavorData(targets, name))
      names.emplace_back(name);
  if (isConcealed(targets))
    names.emplace_back(pasteboardType::concealed);
  return names;
}

} // namespace tavrel
