#include "ScriptRun.h"

#include <cstddef>
#include <cstdint>

namespace tavrel::script {
namespace {

// Values of every kind that can be kept, sound and damaged, for the names that the samples use.
PropertyList::Dictionary properties() {
  using Dictionary = PropertyList::Dictionary;
  return {{"a", 1},
          {"b", "text"},
          {"c", PropertyList::Array{true, 2.5, PropertyList::Date{1e300}}},
          {"d", Dictionary{{"class", "record"},
                           {"labels", PropertyList::Array{"x", "x", "parent"}},
                           {"value", PropertyList::Array{1, "\xFF", 3}}}},
          {"e", Dictionary{{"class", "constant"}, {"value", "yes"}}},
          {"f", Dictionary{{"class", "alias"}, {"value", ""}}},
          {"parent", Dictionary{{"class", "class"}, {"value", "item"}}}};
}

} // namespace
} // namespace tavrel::script

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrel;
  using namespace tavrel::script;
  const PropertyList::Dictionary container{{"compiled", Bytes(data, data + size)},
                                           {"properties", properties()}};
  RefusingHost host;
  Engine engine(host);
  const Engine::Loaded loaded = engine.loadContainer(container);
  runBriefly(engine, loaded);
  if (const auto* script = std::get_if<ScriptId>(&loaded))
    demand(engine.container(*script).has_value());
  return 0;
}
