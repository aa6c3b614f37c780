#include "platform/linux/x11/keyboard/XkbLayout.h"

namespace tavrel {

namespace {

constexpr const char* prefix = "com.apple.keylayout.";

std::string_view elementOf(std::string_view list, std::size_t index) {
  for (; index > 0; --index) {
    const std::size_t comma = list.find(',');
    if (comma == std::string_view::npos)
      return {};
    list.remove_prefix(comma + 1);
  }
  return list.substr(0, list.find(','));
}

std::string capitalized(std::string_view name) {
  std::string text(name);
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z')
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
  return text;
}

} // namespace

std::string layoutIdentifierOf(std::string_view layouts, std::string_view variants,
                               std::size_t group) {
  const std::string_view layout = elementOf(layouts, group);
  const std::string_view variant = elementOf(variants, group);
  if (layout.empty())
    return {};
  if (layout == "us" && variant.empty())
    return std::string(prefix) + "US";
  if (layout == "us" && variant == "dvorak")
    return std::string(prefix) + "Dvorak";
  std::string identifier = std::string(prefix).append(capitalized(layout));
  return variant.empty() ? identifier : identifier.append("-").append(variant);
}

} // namespace tavrel
