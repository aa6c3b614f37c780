#include "platform/linux/x11/clipboard/ClipboardTargets.h"

#include "base/Url.h"
#include "platform/Pasteboards.h"
#include "platform/linux/plists/PropertyListCodec.h"
#include "platform/linux/x11/clipboard/ClipboardText.h"

#include <algorithm>

namespace tavrel {

namespace {

std::vector<std::string> pathsOf(const Bytes& list) {
  std::vector<std::string> paths;
  const auto value = decodePropertyList(list).value;
  const PropertyList::Array* array = value ? value->array() : nullptr;
  for (const PropertyList& each : array ? *array : PropertyList::Array())
    if (const std::string* path = each.string())
      paths.push_back(*path);
  return paths;
}

std::string urlLines(const std::vector<std::string>& paths, std::string_view end) {
  std::string lines;
  for (const std::string& path : paths)
    lines.append(fileUrlOfPath(path, PathIs::file)).append(end);
  return lines;
}

// For the file managers of GNOME and Xfce: the operation, then the URLs, without a line feed at the
// end.
std::string copiedFiles(const Bytes& list) {
  std::string text = "copy\n" + urlLines(pathsOf(list), "\n");
  text.pop_back();
  return text;
}

std::string imageTarget(const Bytes& image) {
  const std::string_view head(reinterpret_cast<const char*>(image.data()),
                              std::min<std::size_t>(image.size(), 4));
  if (head == "\x89PNG")
    return "image/png";
  if (head.starts_with("\xFF\xD8"))
    return "image/jpeg";
  if (head.starts_with("GIF8"))
    return "image/gif";
  return head.starts_with("BM") ? "image/bmp" : "image/tiff";
}

std::vector<std::string> targetsOfFlavor(const ClipboardContents& contents,
                                         const std::string& name) {
  if (name == pasteboardType::string)
    return {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain", "STRING", "TEXT"};
  if (name == pasteboardType::rtf)
    return {"text/rtf", "application/rtf"};
  if (name == pasteboardType::html)
    return {"text/html"};
  if (name == pasteboardType::pdf)
    return {"application/pdf"};
  if (name == pasteboardType::url)
    return {"text/uri-list"};
  if (name == pasteboardType::filenames)
    return {"x-special/gnome-copied-files", "text/uri-list"};
  const SharedBytes image = name == pasteboardType::tiff ? contents.dataOf(name) : nullptr;
  return image ? std::vector{imageTarget(*image)} : std::vector<std::string>();
}

ServedTarget served(const std::string& type, const std::string& text) {
  return {type, 8, sharedBytes(Bytes(text.begin(), text.end()))};
}

ServedTarget servedFlavor(const std::string& name, const std::string& target,
                          const SharedBytes& data) {
  if (name == pasteboardType::filenames)
    return served(target, target == "text/uri-list" ? urlLines(pathsOf(*data), "\r\n")
                                                    : copiedFiles(*data));
  if (target == "STRING")
    return {target, 8, sharedBytes(latin1OfText(std::string(data->begin(), data->end())))};
  return {target == "TEXT" ? "UTF8_STRING" : target, 8, data};
}

std::optional<SelectionTarget> servedX11Target(const std::string& name) {
  auto target = selectionTargetNamed(name);
  return target && !target->unread ? target : std::nullopt;
}

} // namespace

std::vector<std::string> servedTargets(const ClipboardContents& contents) {
  const bool hasX11Targets = hasSelectionTargets(contents.names);
  std::vector<std::string> targets;
  for (const std::string& name : contents.names) {
    const auto x11Target = servedX11Target(name);
    for (const std::string& target :
         hasX11Targets ? (x11Target ? std::vector{x11Target->target} : std::vector<std::string>())
                       : targetsOfFlavor(contents, name))
      if (std::find(targets.begin(), targets.end(), target) == targets.end())
        targets.push_back(target);
  }
  return targets;
}

std::optional<ServedTarget> servedTarget(const ClipboardContents& contents,
                                         const std::string& target) {
  const bool hasX11Targets = hasSelectionTargets(contents.names);
  for (const std::string& name : contents.names) {
    const SharedBytes data = contents.dataOf(name);
    if (!data)
      continue;
    if (const auto x11Target = servedX11Target(name); x11Target && x11Target->target == target)
      return ServedTarget{x11Target->type, x11Target->format, data};
    const auto targets =
        hasX11Targets ? std::vector<std::string>() : targetsOfFlavor(contents, name);
    if (std::find(targets.begin(), targets.end(), target) != targets.end())
      return servedFlavor(name, target, data);
  }
  return std::nullopt;
}

bool awaitsData(const ClipboardContents& contents) {
  const bool hasX11Targets = hasSelectionTargets(contents.names);
  return std::any_of(contents.names.begin(), contents.names.end(), [&](const std::string& name) {
    const bool counts = hasX11Targets ? servedX11Target(name).has_value() : name.starts_with("NS");
    return counts && !contents.dataOf(name);
  });
}

} // namespace tavrel
