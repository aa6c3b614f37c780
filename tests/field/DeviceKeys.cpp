// Presses keys on the display's own keyboard, which counts as a person's; the keys of programs come
// from another device.
//   device_keys [--hold MS] [--gap MS] [--menu CLASS] KEY...
//     KEY     a name ("Return", "a"), the server's code ("66"), several held together
//             ("ctrl+shift+End"), or "text:..." to type
//     --hold  how long each key is down (70), --gap: how long none is (40)
//     --menu  waits until a menu of this window class is on the screen, and prints the milliseconds
//             from the last key to it; fails when there is none after five seconds
#include "KeyNames.h"
#include "MenuWatch.h"
#include "support/FakeInput.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace tavrel {
namespace {

using Clock = std::chrono::steady_clock;

struct Options {
  std::uint32_t hold = 70, gap = 40;
  std::string menu;
  std::vector<std::string_view> keys;
};

[[noreturn]] void giveUp(const std::string& why) {
  std::fprintf(stderr, "device_keys: %s\n", why.c_str());
  std::exit(2);
}

Options optionsOf(int count, char** arguments) {
  Options options;
  int at = 1;
  for (; at + 1 < count && std::string_view(arguments[at]).substr(0, 2) == "--"; at += 2) {
    const std::string_view name = arguments[at];
    if (name == "--menu")
      options.menu = arguments[at + 1];
    else if (name == "--hold" || name == "--gap")
      (name == "--hold" ? options.hold : options.gap) =
          static_cast<std::uint32_t>(std::strtoul(arguments[at + 1], nullptr, 10));
    else
      giveUp("there is no option " + std::string(name));
  }
  options.keys.assign(arguments + at, arguments + count);
  if (options.keys.empty())
    giveUp("no key is named");
  return options;
}

/// The keys of "ctrl+shift+End", in this order.
std::vector<std::uint8_t> chord(std::string_view names) {
  std::vector<std::uint8_t> codes;
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find('+', 1));
    const auto code = keyNamed(name);
    if (!code)
      giveUp("there is no key " + std::string(name));
    codes.push_back(*code);
    names.remove_prefix(std::min(names.size(), name.size() + 1));
  }
  return codes;
}

/// All keys of the chord go down, the last one is held, and all come up.
void press(FakeInput& keyboard, const std::vector<std::uint8_t>& codes, const Options& options) {
  keyboard.waitAndPress(codes.front(), options.gap);
  for (std::size_t i = 1; i < codes.size(); ++i)
    keyboard.down(codes[i]);
  keyboard.holdAndRelease(codes.back(), options.hold);
  for (std::size_t i = codes.size() - 1; i > 0; --i)
    keyboard.up(codes[i - 1]);
}

void typeText(FakeInput& keyboard, std::string_view text, const Options& options) {
  for (const char character : text) {
    const auto key = keyTyping(character);
    if (!key)
      giveUp("no key types " + std::string(1, character));
    std::vector<std::uint8_t> codes{key->code};
    if (key->shifted)
      codes.insert(codes.begin(), serverKey::shift);
    press(keyboard, codes, options);
  }
}

void pressAll(const Options& options) {
  constexpr std::string_view text = "text:";
  FakeInput keyboard{Device::keyboard};
  for (const std::string_view key : options.keys)
    if (key.substr(0, text.size()) == text)
      typeText(keyboard, key.substr(text.size()), options);
    else
      press(keyboard, chord(key), options);
}

int pressUntilMenu(const Options& options) {
  MenuWatch menus(options.menu);
  pressAll(options);
  const auto done = Clock::now();
  if (!menus.appears(done + std::chrono::seconds(5)))
    return 1;
  std::printf("%.1f\n", std::chrono::duration<double, std::milli>(Clock::now() - done).count());
  return 0;
}

} // namespace
} // namespace tavrel

int main(int count, char** arguments) {
  const tavrel::Options options = tavrel::optionsOf(count, arguments);
  if (!options.menu.empty())
    return tavrel::pressUntilMenu(options);
  tavrel::pressAll(options);
}
