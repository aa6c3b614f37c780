#include "script/additions/Additions.h"

#include "script/running/HostEvents.h"
#include "script/running/ScriptInstances.h"
#include "script/values/CodePoints.h"
#include "script/values/Coercion.h"
#include "script/values/Description.h"
#include "script/values/Elements.h"
#include "script/values/HostValues.h"
#include "script/values/Specifier.h"
#include "script/values/TextComparison.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tavrel::script {
namespace {

Value askAbout(const AdditionCall& call, const Specifier& object, const char* command) {
  return performEvent(call.frame.runtime,
                      {object.path.application, command, HostValue{object.path}, {}});
}

Value directOrTarget(const AdditionCall& call) {
  return call.direct.is(ValueKind::undefined) ? call.frame.target : call.direct;
}

Value count(const AdditionCall& call) {
  const Value whole = directOrTarget(call);
  if (const auto* object = whole.as<Specifier>())
    return askAbout(call, *object, "count");
  const char* type = whole.is(ValueKind::text) ? "character" : "item";
  return Value::integer(countElements(call.frame.runtime, whole, type));
}

Value exists(const AdditionCall& call) {
  const Value whole = directOrTarget(call);
  const auto* object = whole.as<Specifier>();
  if (object)
    return askAbout(call, *object, "exists");
  if (whole.is(ValueKind::file))
    return performEvent(call.frame.runtime,
                        {"Finder", "exists", valueForHost(call.frame.runtime, whole), {}});
  return Value::boolean(!whole.is(ValueKind::undefined) && !whole.is(ValueKind::missing));
}

Value run(const AdditionCall& call) {
  const Value target =
      call.direct.is(ValueKind::undefined)
          ? (call.frame.target.is(ValueKind::undefined) ? call.frame.me : call.frame.target)
          : call.direct;
  if (auto* script = target.as<ScriptObject>())
    return runScript(call.frame.runtime, *script, {});
  const auto* object = target.as<Specifier>();
  if (!object)
    throw ScriptError{errors::notUnderstood, described(target).append(" can’t run.")};
  return askAbout(call, *object, "launch");
}

Value runText(const AdditionCall& call) {
  Runtime& runtime = call.frame.runtime;
  runtime.guardStack();
  if (runtime.author == Author::application)
    throw ScriptError{errors::notPermitted, "“run script” is not allowed in this script."};
  if (call.direct.is(ValueKind::file))
    throw ScriptError{errors::cannotCoerce,
                      std::string("Can’t run ").append(described(call.direct)).append(".")};
  const auto definition = runtime.bindSource(runtime.heap, textOf(runtime, call.direct));
  const Value given = call.parameter("with parameters");
  const bool isGiven = !given.is(ValueKind::undefined);
  const Value arguments = isGiven ? coerced(runtime, given, "list") : runtime.list({});
  const Ref<ScriptObject> script = instantiate(runtime, definition, {});
  return runScript(runtime, *script, {arguments});
}

Value currentDate(const AdditionCall& call) {
  Runtime& runtime = call.frame.runtime;
  return runtime.date(std::floor(runtime.host.now()));
}

// Counts characters from 1; 0 when the text does not occur.
Value offset(const AdditionCall& call) {
  Runtime& runtime = call.frame.runtime;
  const std::u32string part = comparisonKey(runtime, textOf(runtime, call.parameter("of")));
  const std::u32string whole = comparisonKey(runtime, textOf(runtime, call.parameter("in")));
  const std::size_t at = part.empty() ? std::u32string::npos : whole.find(part);
  return Value::integer(at == std::u32string::npos ? 0 : static_cast<std::int64_t>(at) + 1);
}

Value randomNumber(const AdditionCall& call) {
  Runtime& runtime = call.frame.runtime;
  const Value seed = call.parameter("with seed");
  if (!seed.is(ValueKind::undefined))
    runtime.random.seed(static_cast<std::uint64_t>(integerOf(runtime, seed)));
  Value low = call.parameter("from");
  Value high = call.parameter("to").is(ValueKind::undefined) ? call.direct : call.parameter("to");
  low = low.is(ValueKind::undefined) ? Value::integer(0) : numberOf(runtime, low);
  high = high.is(ValueKind::undefined) ? Value::real(1) : numberOf(runtime, high);
  if (low.is(ValueKind::integer) && high.is(ValueKind::integer)) {
    const auto [least, most] = std::minmax({low.integer(), high.integer()});
    return Value::integer(std::uniform_int_distribution<std::int64_t>(least, most)(runtime.random));
  }
  const double part = std::uniform_real_distribution<double>(0, 1)(runtime.random);
  return Value::real(low.number() + (high.number() - low.number()) * part);
}

double rounded(double number, std::string_view how) {
  if (how == "up")
    return std::ceil(number);
  if (how == "down")
    return std::floor(number);
  if (how == "toward zero")
    return std::trunc(number);
  return how == "as taught in school" ? std::round(number) : std::nearbyint(number);
}

Value roundNumber(const AdditionCall& call) {
  Runtime& runtime = call.frame.runtime;
  const Value how = call.parameter("rounding");
  const std::string name = how.is(ValueKind::constant) ? how.name() : std::string();
  const double number = numberOf(runtime, call.direct).number();
  return coerced(runtime, Value::real(rounded(number, name)), "integer");
}

Value asciiCharacter(const AdditionCall& call) {
  Runtime& runtime = call.frame.runtime;
  const std::int64_t code = integerOf(runtime, call.direct);
  if (code < 0 || code > 127)
    throw ScriptError{errors::badIndex, "An ASCII character is from 0 to 127."};
  return runtime.text(std::string(1, static_cast<char>(code)));
}

// The text of one code point or of a list of them.
Value characterId(const AdditionCall& call) {
  Runtime& runtime = call.frame.runtime;
  const Value codes = coerced(runtime, call.direct, "list");
  std::string text;
  for (const Value& each : codes.as<List>()->values())
    appendCodePoint(text, static_cast<std::uint32_t>(
                              std::clamp<std::int64_t>(integerOf(runtime, each), -1, 0x110000)));
  return runtime.text(std::move(text));
}

Value asciiNumber(const AdditionCall& call) {
  Runtime& runtime = call.frame.runtime;
  const std::string text = textOf(runtime, call.direct);
  std::size_t at = 0;
  if (text.empty())
    throw ScriptError{errors::cannotCoerce, "An empty text has no number."};
  return Value::integer(takeCodePoint(text, at));
}

constexpr auto additions = std::to_array<std::pair<std::string_view, ScriptingAddition>>(
    {{"count", count},
     {"exists", exists},
     {"run", run},
     {"run script", runText},
     {"current date", currentDate},
     {"offset", offset},
     {"random number", randomNumber},
     {"round", roundNumber},
     {"character id", characterId},
     {"string id", characterId},
     {"text id", characterId},
     {"ascii character", asciiCharacter},
     {"ascii number", asciiNumber}});

} // namespace

ScriptingAddition additionNamed(std::string_view command) {
  for (const auto& [name, addition] : additions)
    if (name == command)
      return addition;
  return nullptr;
}

} // namespace tavrel::script
