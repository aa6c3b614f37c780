#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

/// The places of keys on the keyboard of the private display, which is laid out as in the United
/// States, by the server's codes.
namespace tavrel {

/// A key with Shift or without.
struct TypedKey {
  std::uint8_t code;
  bool shifted;
};

/// The key that types a character; nothing when none does.
[[nodiscard]] inline std::optional<TypedKey> keyTyping(char character) {
  struct Row {
    std::uint8_t first;
    std::string_view plain, shifted;
  };
  constexpr std::array rows = {Row{10, "1234567890-=", "!@#$%^&*()_+"},
                               Row{24, "qwertyuiop[]", "QWERTYUIOP{}"},
                               Row{38, "asdfghjkl;'`", "ASDFGHJKL:\"~"},
                               Row{51, "\\zxcvbnm,./", "|ZXCVBNM<>?"}, Row{65, " ", ""}};
  for (const Row& row : rows)
    for (const bool shifted : {false, true}) {
      const auto place = (shifted ? row.shifted : row.plain).find(character);
      if (place != std::string_view::npos)
        return TypedKey{static_cast<std::uint8_t>(row.first + place), shifted};
    }
  return {};
}

/// The key of a name, of a single character, or of a server's code in two digits or three; nothing
/// when there is none.
[[nodiscard]] inline std::optional<std::uint8_t> keyNamed(std::string_view name) {
  struct Named {
    std::string_view name;
    std::uint8_t code;
  };
  constexpr std::array keys = {
      Named{"ctrl", 37},    Named{"shift", 50},   Named{"alt", 64},    Named{"Return", 36},
      Named{"Escape", 9},   Named{"Tab", 23},     Named{"space", 65},  Named{"BackSpace", 22},
      Named{"Home", 110},   Named{"Up", 111},     Named{"Prior", 112}, Named{"Left", 113},
      Named{"Right", 114},  Named{"End", 115},    Named{"Down", 116},  Named{"Next", 117},
      Named{"Insert", 118}, Named{"Delete", 119}, Named{"F1", 67},     Named{"F2", 68},
      Named{"F3", 69},      Named{"F4", 70},      Named{"F5", 71},     Named{"F6", 72},
      Named{"F7", 73},      Named{"F8", 74},      Named{"F9", 75},     Named{"F10", 76},
      Named{"F11", 95},     Named{"F12", 96}};
  for (const Named& key : keys)
    if (key.name == name)
      return key.code;
  unsigned code = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), code);
  if (error == std::errc() && end == name.data() + name.size() && code > 9 && code < 256)
    return static_cast<std::uint8_t>(code);
  const auto typed = name.size() == 1 ? keyTyping(name.front()) : std::nullopt;
  return typed ? std::optional(typed->code) : std::nullopt;
}

} // namespace tavrel
