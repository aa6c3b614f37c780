#include "platform/linux/plists/PropertyListNodes.h"

#include "platform/linux/plists/PropertyListCodec.h"
#include "platform/linux/text/WellFormedText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace tavrel {

namespace {

struct CFree {
  void operator()(void* memory) const { std::free(memory); }
};

std::optional<PropertyList> leafOf(plist_t node) {
  std::uint64_t length = 0;
  switch (plist_get_node_type(node)) {
  case PLIST_BOOLEAN: {
    std::uint8_t value = 0;
    plist_get_bool_val(node, &value);
    return PropertyList(value != 0);
  }
  case PLIST_UINT: {
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    return PropertyList(static_cast<std::int64_t>(value));
  }
  case PLIST_REAL: {
    double value = 0;
    plist_get_real_val(node, &value);
    return PropertyList(value);
  }
  case PLIST_STRING: {
    const char* text = plist_get_string_ptr(node, &length);
    return PropertyList(text ? std::string(text, length) : std::string());
  }
  case PLIST_DATA: {
    const char* data = plist_get_data_ptr(node, &length);
    return PropertyList(data ? Bytes(data, data + length) : Bytes());
  }
  case PLIST_DATE: {
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return PropertyList(PropertyList::Date{seconds + microseconds / 1e6});
  }
  default:
    return std::nullopt;
  }
}

// A libplist container whose children are being read, and the value that they make up.
class ContainerReader {
public:
  explicit ContainerReader(plist_t node) : node_(node), isArray_(PLIST_IS_ARRAY(node)) {
    void* iterator = nullptr;
    if (isArray_)
      plist_array_new_iter(node, &iterator);
    else
      plist_dict_new_iter(node, &iterator);
    iterator_.reset(iterator);
  }

  // The next child; null after the last.
  plist_t next() {
    plist_t child = nullptr;
    char* key = nullptr;
    if (isArray_)
      plist_array_next_item(node_, iterator_.get(), &child);
    else
      plist_dict_next_item(node_, iterator_.get(), &key, &child);
    const std::unique_ptr<char, CFree> owned(key);
    key_ = key ? key : "";
    return child;
  }

  void add(PropertyList value) {
    if (isArray_)
      elements_.push_back(std::move(value));
    else
      entries_.insert_or_assign(key_, std::move(value));
  }

  PropertyList finish() {
    return isArray_ ? PropertyList(std::move(elements_)) : PropertyList(std::move(entries_));
  }

private:
  plist_t node_;
  bool isArray_;
  std::unique_ptr<void, CFree> iterator_;
  std::string key_;
  PropertyList::Array elements_;
  PropertyList::Dictionary entries_;
};

bool isContainer(plist_t node) {
  return PLIST_IS_ARRAY(node) || PLIST_IS_DICT(node);
}

// libplist 2.2 keeps dates as 32-bit seconds, 1932 to 2069; others become the nearest of these.
plist_t newDateNode(double seconds) {
  constexpr double farthest = std::numeric_limits<std::int32_t>::max();
  const double kept = std::isnan(seconds) ? 0 : std::clamp(seconds, -farthest, farthest);
  const double whole = std::floor(kept);
  return plist_new_date(static_cast<std::int32_t>(whole),
                        static_cast<std::int32_t>((kept - whole) * 1e6));
}

plist_t newNode(const PropertyList& value) {
  switch (value.kind()) {
  case PropertyList::Kind::boolean:
    return plist_new_bool(*value.boolean() ? 1 : 0);
  case PropertyList::Kind::integer:
    return plist_new_uint(static_cast<std::uint64_t>(*value.integer()));
  case PropertyList::Kind::real:
    return plist_new_real(*value.real());
  case PropertyList::Kind::string:
    return plist_new_string(wellFormedText(*value.string()).c_str());
  case PropertyList::Kind::data:
    return plist_new_data(reinterpret_cast<const char*>(value.data()->data()),
                          value.data()->size());
  case PropertyList::Kind::date:
    return newDateNode(value.date()->seconds);
  case PropertyList::Kind::array:
    return plist_new_array();
  case PropertyList::Kind::dictionary:
    return plist_new_dict();
  }
  return nullptr;
}

// A container whose node is made and whose children are not yet.
struct PendingContainer {
  const PropertyList* value;
  plist_t node;
  std::size_t depth;
};

void addChildNodes(const PendingContainer& parent, std::vector<PendingContainer>& pending) {
  if (const auto* elements = parent.value->array())
    for (const PropertyList& element : *elements) {
      plist_t node = newNode(element);
      plist_array_append_item(parent.node, node);
      pending.push_back({&element, node, parent.depth + 1});
    }
  if (const auto* entries = parent.value->dictionary())
    for (const auto& [key, entry] : *entries) {
      plist_t node = newNode(entry);
      plist_dict_set_item(parent.node, wellFormedText(key).c_str(), node);
      pending.push_back({&entry, node, parent.depth + 1});
    }
}

} // namespace

std::optional<PropertyList> valueOfNode(plist_t root) {
  if (!isContainer(root))
    return leafOf(root);
  std::vector<ContainerReader> open;
  open.emplace_back(root);
  while (true) {
    plist_t child = open.back().next();
    if (child && isContainer(child)) {
      open.emplace_back(child);
    } else if (child) {
      auto leaf = leafOf(child);
      if (!leaf)
        return std::nullopt;
      open.back().add(*std::move(leaf));
    } else {
      PropertyList finished = open.back().finish();
      open.pop_back();
      if (open.empty())
        return finished;
      open.back().add(std::move(finished));
    }
  }
}

PlistNode nodeOfValue(const PropertyList& value) {
  PlistNode root(newNode(value));
  std::vector<PendingContainer> pending{{&value, root.get(), 1}};
  while (!pending.empty()) {
    const PendingContainer next = pending.back();
    pending.pop_back();
    if (next.depth > deepestPropertyList)
      return nullptr;
    addChildNodes(next, pending);
  }
  return root;
}

} // namespace tavrel
