#include "platform/linux/scripts/ScriptKeys.h"

#include "base/Modifiers.h"
#include "base/Utf8.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"
#include "script/ScriptError.h"

#include <algorithm>

namespace tavrel {

using namespace script;

namespace {

constexpr std::int64_t mostKeyCode = 127;

using Modifiers = std::vector<std::uint16_t>;

std::optional<std::uint16_t> modifierNamed(const std::string& name) {
  static const std::map<std::string, std::uint16_t> codes{{"command down", keyCode::command},
                                                          {"shift down", keyCode::shift},
                                                          {"option down", keyCode::option},
                                                          {"control down", keyCode::control}};
  const auto found = codes.find(name);
  return found != codes.end() ? std::optional(found->second) : std::nullopt;
}

// Nothing when something else than a modifier is named.
std::optional<Modifiers> modifiersOf(const HostEvent& event) {
  Modifiers modifiers;
  const HostValue* named = parameterOf(event, "using");
  if (named == nullptr)
    return modifiers;
  for (const std::string& name : scriptTexts(*named)) {
    const auto code = modifierNamed(name);
    if (!code)
      return std::nullopt;
    modifiers.push_back(*code);
  }
  return modifiers;
}

// A line feed is typed by Return.
std::optional<std::vector<KeyboardEvent>> keysTyping(const std::string& text) {
  std::vector<KeyboardEvent> keys;
  for (const char16_t unit : utf16FromUtf8(text)) {
    if (unit >= 0xD800 && unit <= 0xDFFF)
      return std::nullopt;
    const auto character = static_cast<std::uint16_t>(unit == u'\n' ? u'\r' : unit);
    keys.push_back({character, noKey, KeyDirection::down});
  }
  return keys;
}

std::optional<KeyboardEvent> keyOfCode(const HostValue& value) {
  const auto* code = std::get_if<std::int64_t>(&value.value);
  if (code == nullptr || *code < 0 || *code > mostKeyCode)
    return std::nullopt;
  return KeyboardEvent{0, static_cast<std::uint16_t>(*code), KeyDirection::down};
}

std::optional<std::vector<KeyboardEvent>> keysOfCodes(const HostValue& values) {
  const auto* list = std::get_if<HostList>(&values.value);
  std::vector<KeyboardEvent> keys;
  for (const HostValue& each : list ? *list : HostList{values}) {
    const auto key = keyOfCode(each);
    if (!key)
      return std::nullopt;
    keys.push_back(*key);
  }
  return keys;
}

HostAnswer pressAll(ScriptDesktop& desktop, const std::vector<KeyboardEvent>& keys,
                    const HostEvent& event) {
  const auto modifiers = modifiersOf(event);
  if (!modifiers)
    return HostError{errors::cannotCoerce, "What is held is no modifier key."};
  const auto type = [&](const KeyboardEvent& key) {
    return pressInFront(desktop, {key, *modifiers});
  };
  if (!std::ranges::all_of(keys, type))
    return HostError{errors::notRunning, "There is no keyboard to type on."};
  return HostValue{};
}

} // namespace

bool pressInFront(ScriptDesktop& desktop, const ScriptKey& key) {
  const auto front = desktop.applications.active();
  const AXUIElementRef element =
      desktop.accessibility.applicationElement(front ? front->processIdentifier : 0);
  std::vector<KeyboardEvent> keys;
  for (const std::uint16_t modifier : key.modifiers)
    keys.push_back({0, modifier, KeyDirection::down, key.key.purpose});
  keys.push_back(key.key);
  bool isSent = true;
  const auto post = [&](KeyboardEvent event, KeyDirection direction) {
    event.direction = direction;
    isSent = desktop.accessibility.postKeyboardEvent(element, event) && isSent;
  };
  for (const KeyboardEvent& each : keys)
    post(each, KeyDirection::down);
  std::ranges::reverse(keys);
  for (const KeyboardEvent& each : keys)
    post(each, KeyDirection::up);
  return isSent;
}

HostAnswer typeKeystroke(ScriptDesktop& desktop, const HostEvent& event) {
  const auto text = event.direct ? scriptText(*event.direct) : std::nullopt;
  if (!text)
    return HostError{errors::missingArgument, "There is no text to type."};
  const auto keys = keysTyping(*text);
  return keys ? pressAll(desktop, *keys, event)
              : HostError{errors::cannotCoerce, "No key types “" + *text + "”."};
}

HostAnswer typeKeyCode(ScriptDesktop& desktop, const HostEvent& event) {
  if (!event.direct)
    return HostError{errors::missingArgument, "There is no key code."};
  const auto keys = keysOfCodes(*event.direct);
  return keys ? pressAll(desktop, *keys, event)
              : HostError{errors::badIndex, "A key code is a number from 0 to 127."};
}

} // namespace tavrel
