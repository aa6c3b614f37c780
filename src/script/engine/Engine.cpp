#include "script/engine/Engine.h"

#include "base/Utf8.h"
#include "script/binding/Binder.h"
#include "script/running/HostEvents.h"
#include "script/running/ScriptInstances.h"
#include "script/storage/StoredValues.h"
#include "script/storage/SyntaxTreeCodec.h"
#include "script/syntax/Parser.h"
#include "script/values/Description.h"
#include "script/values/HostValues.h"

#include <new>

namespace tavrel::script {
namespace {

constexpr const char* sourceKey = "source";
constexpr const char* compiledKey = "compiled";
constexpr const char* propertiesKey = "properties";

ErrorReport reportOf(const ScriptError& error) {
  return {error.number, error.message, error.application, error.span};
}

// Does the work; an error that it throws becomes a value.
template <typename Work> std::optional<ErrorReport> attempted(Work work) {
  try {
    work();
  } catch (const ScriptError& error) {
    return reportOf(error);
  } catch (const std::bad_alloc&) {
    return ErrorReport{errors::outOfMemory, "Out of memory.", {}, {}};
  }
  return std::nullopt;
}

std::shared_ptr<const ScriptDefinition> bindSource(Heap& heap, const std::string& source) {
  return bindScript(heap, parseScript(source));
}

} // namespace

/// Counts the runs inside one another. After the outermost one it tells the host, and frees scripts
/// that hold each other, as a script and one inside it do.
class Engine::Running {
public:
  explicit Running(Engine& engine) : engine_(engine) { ++engine_.runs_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() {
    if (--engine_.runs_ > 0)
      return;
    engine_.heap_.clear();
    engine_.host_.runEnded();
  }

private:
  Engine& engine_;
};

Engine::Engine(Host& host) : host_(host) {}

Engine::~Engine() = default;

Engine::Loaded Engine::loadSource(const std::string& source, Author author) {
  Script script{source, author, {}, nullptr, {}};
  if (!isUtf8(source))
    return ErrorReport{errors::syntax, "The script is no text.", {}, {}};
  if (auto error = attempted([&] { script.tree = parseScript(source); }))
    return *std::move(error);
  return add(std::move(script));
}

Engine::Loaded Engine::loadContainer(const PropertyList& container) {
  const Bytes* compiled = container.dataFor(compiledKey);
  auto tree = compiled ? decodeTree(*compiled) : std::nullopt;
  if (!tree)
    return ErrorReport{errors::corruptScript, "The compiled script is damaged.", {}, {}};
  Script script{std::nullopt, Author::user, *std::move(tree), nullptr, {}};
  if (const std::string* source = container.stringFor(sourceKey))
    script.source = *source;
  const PropertyList* properties = container.find(propertiesKey);
  if (properties && properties->dictionary())
    script.properties = *properties->dictionary();
  return add(std::move(script));
}

Engine::Loaded Engine::add(Script script) {
  if (auto error = attempted([&] { script.definition = bindScript(heap_, script.tree); }))
    return *std::move(error);
  const ScriptId id = ++last_;
  scripts_.emplace(id, std::move(script));
  return id;
}

void Engine::restoreProperties(Runtime& runtime, ScriptObject& object, const Script& script) const {
  const ScriptDefinition& definition = object.definition();
  for (std::size_t i = 0; i < definition.propertyCount; ++i) {
    const auto kept = script.properties.find(*definition.fields[i]);
    if (kept == script.properties.end())
      continue;
    if (auto value = restoredValue(runtime, kept->second))
      object.fields[i] = *std::move(value);
  }
}

void Engine::keepProperties(const ScriptObject& object, Script& script) {
  const ScriptDefinition& definition = object.definition();
  for (std::size_t i = 0; i < definition.propertyCount && i < object.fields.size(); ++i)
    if (auto value = storedValue(object.fields[i]))
      script.properties.insert_or_assign(*definition.fields[i], *std::move(value));
}

RunResult Engine::run(ScriptId id, const std::vector<std::string>& arguments, Limits limits) {
  const auto found = scripts_.find(id);
  if (found == scripts_.end())
    return {ErrorReport{errors::corruptScript, "There is no such script.", {}, {}}, {}, {}};
  Script& script = found->second;
  RunResult result;
  heap_.limit = limits.heap;
  const Running running(*this);
  result.error = attempted([&] {
    Runtime runtime(heap_, host_, bindSource, script.author, limits);
    const Ref<ScriptObject> object = instantiate(runtime, script.definition, {});
    restoreProperties(runtime, *object, script);
    std::vector<Value> values;
    for (const std::string& each : arguments)
      values.push_back(runtime.text(each));
    const Value value = fetched(runtime, runScript(runtime, *object, {runtime.list(values)}));
    result.description = described(value);
    keepProperties(*object, script);
    // A value that the desktop cannot take, as a script or a list that holds itself, leaves `value`
    // as `missing value`; it is no error.
    (void)attempted([&] { result.value = valueForHost(runtime, value); });
  });
  return result;
}

std::optional<PropertyList> Engine::container(ScriptId id) const {
  const auto found = scripts_.find(id);
  if (found == scripts_.end())
    return std::nullopt;
  const Script& script = found->second;
  PropertyList::Dictionary result{{compiledKey, encodeTree(script.tree)},
                                  {propertiesKey, script.properties}};
  if (script.source)
    result.emplace(sourceKey, *script.source);
  return result;
}

void Engine::dispose(ScriptId id) {
  scripts_.erase(id);
}

} // namespace tavrel::script
