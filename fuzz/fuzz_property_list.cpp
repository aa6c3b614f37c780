#include "platform/linux/plists/PropertyListCodec.h"

#include <cstdlib>

namespace tavrel {
namespace {

constexpr std::size_t enough = 100000;

/// Counts the values of a tree without recursion, touching each, until it has seen enough.
std::size_t walk(const PropertyList& root) {
  std::size_t count = 0;
  std::vector<const PropertyList*> pending{&root};
  while (!pending.empty() && count <= enough) {
    const PropertyList* value = pending.back();
    pending.pop_back();
    ++count;
    if (const auto* elements = value->array())
      for (const PropertyList& element : *elements)
        pending.push_back(&element);
    if (const auto* entries = value->dictionary())
      for (const auto& [key, entry] : *entries)
        pending.push_back(&entry);
  }
  return count;
}

void demand(bool holds) {
  if (!holds)
    std::abort();
}

// What is written reads back as a tree of as many values.
void writeAndReadAgain(const PropertyList& value, PropertyListForm form) {
  const auto first = encodePropertyList(value, form);
  if (!first)
    return; // nested deeper than is written
  const DecodedPropertyList again = decodePropertyList(*first);
  demand(again.value.has_value() && again.form == form);
  demand(walk(*again.value) == walk(value));
}

} // namespace
} // namespace tavrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  const DecodedPropertyList list = decodePropertyList(Bytes(bytes, bytes + size));
  demand(list.value.has_value() == list.problem.empty());
  if (!list.value || walk(*list.value) > enough)
    return 0;
  writeAndReadAgain(*list.value, PropertyListForm::xml);
  writeAndReadAgain(*list.value, PropertyListForm::binary);
  return 0;
}
