#include "platform/linux/x11/clipboard/SelectionTarget.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::string_view nativePrefix = "x11:";
constexpr std::string_view unreadMark = ";unread";
constexpr std::string_view typeMark = ";type=";
constexpr std::string_view formatMark = ";format=";

// A target whose own name has a mark of ours gets its type and format spelled out, so that it is
// parsed back as it was.
bool looksMarked(std::string_view target) {
  return target.ends_with(unreadMark) || target.find(typeMark) != target.npos;
}

// So that the last mark in a name is ours, whatever is in the type.
std::string escaped(std::string_view type) {
  std::string text;
  for (const char each : type)
    text += each == ';' ? "%3B" : each == '%' ? "%25" : std::string(1, each);
  return text;
}

std::string unescapedTarget(std::string_view text) {
  std::string type;
  for (std::size_t at = 0; at < text.size(); at += text[at] == '%' ? 3 : 1)
    type += text[at] != '%' ? text[at] : text.substr(at, 3) == "%3B" ? ';' : '%';
  return type;
}

std::optional<std::uint8_t> formatOf(std::string_view digits) {
  if (digits == "8")
    return std::uint8_t{8};
  if (digits == "16")
    return std::uint8_t{16};
  return digits == "32" ? std::optional(std::uint8_t{32}) : std::nullopt;
}

} // namespace

std::string pasteboardName(const SelectionTarget& target) {
  std::string name(nativePrefix);
  name += target.target;
  if (target.unread)
    return name.append(unreadMark);
  if (target.type == target.target && target.format == 8 && !looksMarked(target.target))
    return name;
  name.append(typeMark).append(escaped(target.type));
  return name.append(formatMark).append(std::to_string(target.format));
}

std::optional<SelectionTarget> selectionTargetNamed(std::string_view name) {
  if (!name.starts_with(nativePrefix))
    return std::nullopt;
  name.remove_prefix(nativePrefix.size());
  if (name.ends_with(unreadMark)) {
    name.remove_suffix(unreadMark.size());
    return SelectionTarget{std::string(name), std::string(name), 8, true};
  }
  const auto format = name.rfind(formatMark);
  const auto type = format == name.npos ? format : name.rfind(typeMark, format);
  const auto bits =
      type == name.npos ? std::nullopt : formatOf(name.substr(format + formatMark.size()));
  if (!bits)
    return SelectionTarget{std::string(name), std::string(name), 8, false};
  const auto typeName = name.substr(type + typeMark.size(), format - type - typeMark.size());
  return SelectionTarget{std::string(name.substr(0, type)), unescapedTarget(typeName), *bits,
                         false};
}

bool hasSelectionTargets(const std::vector<std::string>& names) {
  return std::any_of(names.begin(), names.end(),
                     [](const std::string& name) { return name.starts_with(nativePrefix); });
}

bool hasNothingToServe(const std::vector<std::string>& names) {
  return std::all_of(names.begin(), names.end(), [](const std::string& name) {
    const auto target = selectionTargetNamed(name);
    return target && target->unread;
  });
}

} // namespace tavrel
