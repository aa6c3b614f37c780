#include "script/running/HandlerCalls.h"

#include "base/Utf8.h"
#include "script/values/HostValues.h"

#include <algorithm>
#include <array>

namespace tavrel::script {
namespace {

constexpr int mostGenerations = 100;

Value finishCall(Frame& frame, const Handler& handler) {
  return handler.body.run(frame) == Flow::returned ? std::move(frame.returned)
                                                   : std::move(frame.result);
}

// What a program complained about can be any bytes.
std::string wellFormed(const std::string& message) {
  return isUtf8(message) ? message : utf8FromUtf16(utf16FromUtf8(message));
}

[[noreturn]] void refuseParameters(const Handler& handler) {
  std::string message = "The parameters don’t fit those of “";
  message.append(*handler.name).append("”.");
  throw ScriptError{errors::wrongArguments, std::move(message)};
}

[[noreturn]] void missArgument(const Handler& handler, const std::string& label) {
  std::string message = "The “";
  message.append(label).append("” parameter is missing for “");
  message.append(*handler.name).append("”.");
  throw ScriptError{errors::missingArgument, std::move(message)};
}

// Sources that the application builds around a path ask for little. A file is opened in a file
// manager alone: a terminal might run it. A shell command in a terminal must be the one that the
// application means: to go to one folder.
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

Found findHandler(ScriptObject& script, const std::string* name) {
  ScriptObject* each = &script;
  for (int generation = 0; each && generation < mostGenerations; ++generation) {
    if (const Handler* handler = each->shape().handler(name))
      return {handler, each};
    each = each->parent.as<ScriptObject>();
  }
  return {};
}

Value callHandler(Runtime& runtime, const Found& found, const Value& me,
                  std::vector<Value> arguments) {
  runtime.guardStack();
  const Handler& handler = *found.handler;
  if (arguments.size() != handler.parameters.size())
    refuseParameters(handler);
  Frame frame(runtime, *found.owner, handler.localCount);
  frame.me = me;
  for (std::size_t i = 0; i < arguments.size(); ++i)
    handler.parameters[i].place->assign(frame, std::move(arguments[i]));
  return finishCall(frame, handler);
}

Value callLabelled(Runtime& runtime, const Found& found, const Value& me,
                   const std::vector<LabelledValue>& arguments) {
  runtime.guardStack();
  const Handler& handler = *found.handler;
  Frame frame(runtime, *found.owner, handler.localCount);
  frame.me = me;
  for (const Parameter& parameter : handler.parameters) {
    const auto given = std::find_if(arguments.begin(), arguments.end(), [&](const auto& each) {
      return each.label == parameter.label;
    });
    if (given == arguments.end())
      missArgument(handler, parameter.label ? *parameter.label : std::string("direct"));
    parameter.place->assign(frame, given->value);
  }
  return finishCall(frame, handler);
}

Ref<ScriptObject> instantiate(Runtime& runtime, const std::shared_ptr<const Shape>& shape,
                              Ref<ScriptObject> outer, Frame* creator) {
  runtime.guardStack();
  Ref script(new ScriptObject(runtime.heap, shape, std::move(outer)));
  Frame frame(runtime, *script, shape->localCount);
  frame.me = Value(script);
  frame.creator = creator;
  const std::string* parent = symbol("parent");
  for (std::size_t i = 0; i < shape->initialValues.size(); ++i) {
    if (!shape->initialValues[i])
      continue;
    script->fields[i] = shape->initialValues[i]->evaluate(frame);
    if (shape->fields[i] == parent && script->fields[i].is(ValueKind::script))
      script->parent = script->fields[i];
  }
  return script;
}

Value runScript(Runtime& runtime, ScriptObject& script, std::vector<Value> arguments) {
  const Handler* handler = script.shape().handler(symbol("run"));
  if (!handler)
    return {};
  arguments.resize(std::min(arguments.size(), handler->parameters.size()));
  if (arguments.size() < handler->parameters.size())
    arguments.resize(handler->parameters.size(), runtime.list({}));
  return callHandler(runtime, {handler, &script}, Value(&script), std::move(arguments));
}

Value performEvent(Runtime& runtime, const HostEvent& event) {
  if (runtime.author == Author::application && !isHarmlessCommand(event)) {
    std::string message = "“";
    message.append(event.command).append("” is not allowed in this script.");
    throw ScriptError{errors::notPermitted, std::move(message)};
  }
  HostAnswer answer = runtime.host.perform(event);
  if (auto* error = std::get_if<HostError>(&answer))
    throw ScriptError{error->number, wellFormed(error->message), {}, event.application};
  return valueOf(runtime, std::get<HostValue>(answer));
}

} // namespace tavrel::script
