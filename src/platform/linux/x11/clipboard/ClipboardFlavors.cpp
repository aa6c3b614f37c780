#include "platform/linux/x11/clipboard/ClipboardFlavors.h"

#include "base/LocalUrl.h"
#include "platform/Pasteboards.h"
#include "platform/linux/plists/PropertyListCodec.h"
#include "platform/linux/x11/clipboard/ClipboardText.h"
#include "platform/linux/x11/clipboard/NativeTarget.h"

#include <algorithm>

namespace tavrel {

namespace {

struct Native {
  NativeTarget target;
  SharedBytes bytes;
};

bool sameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

// The first of these targets that can be read as text or image: names of any case, units of 8 bits.
std::optional<Native> firstOf(const ClipboardContents& natives,
                              std::initializer_list<std::string_view> targets) {
  for (const std::string_view wanted : targets)
    for (const std::string& name : natives.names) {
      const auto target = nativeTargetOfName(name);
      const SharedBytes bytes = target ? natives.dataOf(name) : nullptr;
      if (bytes && target->format == 8 && sameWord(target->target, wanted))
        return Native{*target, bytes};
    }
  return std::nullopt;
}

std::optional<Native> nativeText(const ClipboardContents& natives) {
  return firstOf(natives,
                 {"text/plain;charset=utf-8", "UTF8_STRING", "text/plain", "STRING", "TEXT"});
}

std::optional<Native> nativeImage(const ClipboardContents& natives) {
  return firstOf(natives,
                 {"image/tiff", "image/png", "image/bmp", "image/jpeg", "image/gif", "image/webp"});
}

Bytes bytesOf(const std::string& text) {
  return {text.begin(), text.end()};
}

std::vector<std::string> urlsOn(const ClipboardContents& natives) {
  if (const auto list = firstOf(natives, {"text/uri-list", "x-special/gnome-copied-files"}))
    return urlsOfList(clipboardText(*list->bytes, {}));
  if (const auto link = firstOf(natives, {"text/x-moz-url"}))
    return urlsOfList(clipboardTextUtf16(*link->bytes));
  return {};
}

PropertyList::Array pathsOn(const ClipboardContents& natives) {
  PropertyList::Array paths;
  for (const std::string& url : urlsOn(natives))
    if (auto path = localPathOfUrl(url))
      paths.emplace_back(*std::move(path));
  return paths;
}

std::optional<Bytes> textData(const std::optional<Native>& text) {
  return text ? std::optional(bytesOf(clipboardText(*text->bytes, text->target.type)))
              : std::nullopt;
}

std::optional<Bytes> plainData(const std::optional<Native>& native) {
  return native ? std::optional(*native->bytes) : std::nullopt;
}

std::optional<Bytes> fileData(const ClipboardContents& natives) {
  const PropertyList::Array paths = pathsOn(natives);
  return paths.empty() ? std::nullopt : encodePropertyList(paths, PropertyListForm::xml);
}

std::optional<Bytes> urlData(const ClipboardContents& natives) {
  const std::vector<std::string> urls = urlsOn(natives);
  return urls.empty() || !pathsOn(natives).empty() ? std::nullopt
                                                   : std::optional(bytesOf(urls.front()));
}

// What password managers add so that clipboard managers keep nothing.
bool isConcealed(const ClipboardContents& natives) {
  return std::any_of(natives.names.begin(), natives.names.end(), [&](const std::string& name) {
    const auto target = nativeTargetOfName(name);
    if (!target)
      return false;
    if (target->target == "x-kde-passwordManagerHint") {
      const SharedBytes hint = natives.dataOf(name);
      return !hint || clipboardText(*hint, {}) == "secret";
    }
    return target->target == "application/x-nspasteboard-concealed-type" ||
           target->target == pasteboardType::concealed;
  });
}

} // namespace

std::optional<Bytes> flavorData(const ClipboardContents& natives, const std::string& name) {
  if (name == pasteboardType::string)
    return textData(nativeText(natives));
  if (name == pasteboardType::rtf)
    return plainData(firstOf(natives, {"text/rtf", "application/rtf", "text/richtext"}));
  if (name == pasteboardType::html)
    return textData(firstOf(natives, {"text/html"}));
  if (name == pasteboardType::pdf)
    return plainData(firstOf(natives, {"application/pdf"}));
  if (name == pasteboardType::tiff)
    return plainData(nativeImage(natives));
  if (name == pasteboardType::url)
    return urlData(natives);
  return name == pasteboardType::filenames ? fileData(natives) : std::nullopt;
}

std::vector<std::string> flavorsOf(const ClipboardContents& natives) {
  std::vector<std::string> names;
  for (const char* name :
       {pasteboardType::string, pasteboardType::rtf, pasteboardType::html, pasteboardType::pdf,
        pasteboardType::tiff, pasteboardType::url, pasteboardType::filenames})
    if (flavorData(natives, name))
      names.emplace_back(name);
  if (isConcealed(natives))
    names.emplace_back(pasteboardType::concealed);
  return names;
}

} // namespace tavrel
