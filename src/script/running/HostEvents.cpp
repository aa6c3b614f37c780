#include "script/running/HostEvents.h"

#include "base/Utf8.h"
#include "script/values/HostValues.h"
#include "script/values/Reference.h"

#include <algorithm>
#include <array>

namespace tavrel::script {
namespace {

// The message of a program that failed may be any bytes; texts of scripts are UTF-8.
std::string wellFormed(const std::string& message) {
  return isUtf8(message) ? message : utf8FromUtf16(utf16FromUtf8(message));
}

// What a source of the application itself may ask for. `open` is for file managers alone, since a
// terminal might run the file; `do script` may go to one folder and nothing else.
bool isHarmlessCommand(const HostEvent& event) {
  static constexpr auto harmless =
      std::to_array<std::string_view>({"activate", "reveal", "quit", "count", "get"});
  if (std::find(harmless.begin(), harmless.end(), event.command) != harmless.end())
    return true;
  if (event.command == "open")
    return event.application == "Finder" || event.application == "Path Finder";
  const auto* text = event.direct ? std::get_if<std::string>(&event.direct->value) : nullptr;
  if (event.command != "do script" || !text)
    return false;
  constexpr std::string_view opening = "cd '";
  const bool isQuoted = text->starts_with(opening) && text->size() > opening.size() &&
                        text->find('\'', opening.size()) == text->size() - 1;
  const bool isPlain = std::none_of(text->begin(), text->end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
  });
  return isPlain && (isQuoted || *text == "cd ~");
}

} // namespace

Value performEvent(Runtime& runtime, const HostEvent& event) {
  if (runtime.author == Author::application && !isHarmlessCommand(event)) {
    std::string message = "“";
    message.append(event.command).append("” is not allowed in this script.");
    throw ScriptError{errors::notPermitted, std::move(message)};
  }
  HostAnswer answer = runtime.host.perform(event);
  if (auto* error = std::get_if<HostError>(&answer))
    throw ScriptError{error->number, wellFormed(error->message), {}, event.application};
  return valueFromHost(runtime, std::get<HostValue>(answer));
}

Value fetched(Runtime& runtime, Value value) {
  if (value.is(ValueKind::reference))
    value = dereferenced(runtime, value);
  const auto* object = value.as<Specifier>();
  if (!object || object->path.steps.empty())
    return value;
  return performEvent(runtime, {object->path.application, "get", HostValue{object->path}, {}});
}

void setObject(Runtime& runtime, const Specifier& object, const Value& value) {
  HostEvent event{object.path.application, "set", HostValue{object.path}, {}};
  event.parameters["to"] = valueForHost(runtime, value);
  (void)performEvent(runtime, event);
}

} // namespace tavrel::script
