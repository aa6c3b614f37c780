#include "base/PropertyList.h"

#include <utility>

namespace tavrel {

PropertyList::PropertyList(Bytes value) : value_(std::make_shared<Bytes>(std::move(value))) {}
PropertyList::PropertyList(Array value) : value_(std::make_shared<Array>(std::move(value))) {}
PropertyList::PropertyList(Dictionary value)
    : value_(std::make_shared<Dictionary>(std::move(value))) {}

PropertyList& PropertyList::operator=(const PropertyList& other) {
  PropertyList copy(other);
  std::swap(value_, copy.value_);
  return *this;
}

PropertyList& PropertyList::operator=(PropertyList&& other) noexcept {
  std::swap(value_, other.value_);
  return *this;
}

PropertyList::~PropertyList() {
  dismantle();
}

bool PropertyList::isContainer() const {
  return kind() == Kind::array || kind() == Kind::dictionary;
}

// The containers inside a value that nobody else holds move to the list; the value is then flat.
void PropertyList::releaseChildren(std::vector<PropertyList>& pending) {
  if (auto* array = std::get_if<std::shared_ptr<Array>>(&value_)) {
    if (!*array || array->use_count() != 1)
      return;
    for (PropertyList& child : **array)
      if (child.isContainer())
        pending.push_back(std::move(child));
  } else if (auto* dictionary = std::get_if<std::shared_ptr<Dictionary>>(&value_)) {
    if (!*dictionary || dictionary->use_count() != 1)
      return;
    for (auto& [key, child] : **dictionary)
      if (child.isContainer())
        pending.push_back(std::move(child));
  }
}

void PropertyList::dismantle() {
  if (!isContainer())
    return;
  std::vector<PropertyList> pending;
  releaseChildren(pending);
  while (!pending.empty()) {
    PropertyList child = std::move(pending.back());
    pending.pop_back();
    child.releaseChildren(pending);
  }
}

std::optional<bool> PropertyList::boolean() const {
  const auto* value = std::get_if<bool>(&value_);
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::int64_t> PropertyList::integer() const {
  const auto* value = std::get_if<std::int64_t>(&value_);
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<double> PropertyList::real() const {
  const auto* value = std::get_if<double>(&value_);
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<PropertyList::Date> PropertyList::date() const {
  const auto* value = std::get_if<Date>(&value_);
  return value ? std::optional(*value) : std::nullopt;
}

const Bytes* PropertyList::data() const {
  const auto* value = std::get_if<std::shared_ptr<Bytes>>(&value_);
  return value ? value->get() : nullptr;
}

const PropertyList::Array* PropertyList::array() const {
  const auto* value = std::get_if<std::shared_ptr<Array>>(&value_);
  return value ? value->get() : nullptr;
}

const PropertyList::Dictionary* PropertyList::dictionary() const {
  const auto* value = std::get_if<std::shared_ptr<Dictionary>>(&value_);
  return value ? value->get() : nullptr;
}

const PropertyList* PropertyList::find(std::string_view key) const {
  const Dictionary* entries = dictionary();
  if (!entries)
    return nullptr;
  const auto found = entries->find(key);
  return found == entries->end() ? nullptr : &found->second;
}

const std::string* PropertyList::stringFor(std::string_view key) const {
  const PropertyList* value = find(key);
  return value ? value->string() : nullptr;
}

const PropertyList::Array* PropertyList::arrayFor(std::string_view key) const {
  const PropertyList* value = find(key);
  return value ? value->array() : nullptr;
}

const Bytes* PropertyList::dataFor(std::string_view key) const {
  const PropertyList* value = find(key);
  return value ? value->data() : nullptr;
}

const void* PropertyList::object() const {
  if (const Bytes* bytes = data())
    return bytes;
  if (const Array* elements = array())
    return elements;
  return dictionary();
}

bool PropertyList::isSameObject(const PropertyList& other) const {
  return object() != nullptr && object() == other.object();
}

bool operator==(const PropertyList& a, const PropertyList& b) {
  if (a.kind() != b.kind())
    return false;
  if (a.isSameObject(b))
    return true;
  if (const Bytes* bytes = a.data())
    return *bytes == *b.data();
  if (const PropertyList::Array* elements = a.array())
    return *elements == *b.array();
  if (const PropertyList::Dictionary* entries = a.dictionary())
    return *entries == *b.dictionary();
  return a.value_ == b.value_;
}

const std::string* stringFor(const PropertyList::Dictionary& dictionary, const std::string& key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : found->second.string();
}

} // namespace tavrel
