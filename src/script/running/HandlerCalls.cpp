#include "script/running/HandlerCalls.h"

#include <algorithm>

namespace tavrel::script {
namespace {

// A script may be made its own ancestor.
constexpr int mostGenerations = 100;

Value finishCall(Frame& frame, const Handler& handler) {
  return handler.body.run(frame) == Flow::returned ? std::move(frame.returned)
                                                   : std::move(frame.result);
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

} // namespace

FoundHandler findHandler(ScriptObject& script, const std::string* name) {
  ScriptObject* each = &script;
  for (int generation = 0; each && generation < mostGenerations; ++generation) {
    if (const Handler* handler = each->definition().handler(name))
      return {handler, each};
    each = each->parent.as<ScriptObject>();
  }
  return {};
}

Value callHandler(Runtime& runtime, const FoundHandler& found, const Value& me,
                  std::vector<Value> arguments) {
  runtime.guardStack();
  const Handler& handler = *found.handler;
  if (arguments.size() != handler.parameters.size())
    refuseParameters(handler);
  Frame frame(runtime, *found.owner, handler.localCount);
  frame.me = me;
  for (std::size_t i = 0; i < arguments.size(); ++i)
    handler.parameters[i].target->assign(frame, std::move(arguments[i]));
  return finishCall(frame, handler);
}

Value callLabelled(Runtime& runtime, const FoundHandler& found, const Value& me,
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
    parameter.target->assign(frame, given->value);
  }
  return finishCall(frame, handler);
}

} // namespace tavrel::script
