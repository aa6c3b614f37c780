#include "platform/memory/MemoryPreferences.h"

namespace tavrel {

namespace {
void apply(PropertyList::Dictionary& values, const std::string& key,
           const std::optional<PropertyList>& value) {
  if (value)
    values.insert_or_assign(key, *value);
  else
    values.erase(key);
}
} // namespace

MemoryPreferences::Copy& MemoryPreferences::copyOf(const std::string& domain) {
  const auto [place, added] = copies_.try_emplace(domain);
  if (added)
    place->second.values = control.store[domain];
  return place->second;
}

std::optional<PropertyList> MemoryPreferences::value(const std::string& domain,
                                                     const std::string& key) {
  const auto& values = copyOf(domain).values;
  const auto found = values.find(key);
  return found == values.end() ? std::nullopt : std::optional(found->second);
}

void MemoryPreferences::setValue(const std::string& domain, const std::string& key,
                                 std::optional<PropertyList> value) {
  Copy& copy = copyOf(domain);
  apply(copy.values, key, value);
  copy.pending.insert_or_assign(key, std::move(value));
}

bool MemoryPreferences::synchronize(const std::string& domain) {
  control.synchronized.push_back(domain);
  Copy& copy = copyOf(domain);
  if (control.writesFail && !copy.pending.empty())
    return false;
  auto& stored = control.store[domain];
  for (const auto& [key, value] : copy.pending)
    apply(stored, key, value);
  copy.pending.clear();
  copy.values = stored;
  return true;
}

std::optional<PropertyList::Dictionary>
MemoryPreferences::persistentDomain(const std::string& domain) {
  const auto& values = copyOf(domain).values;
  return values.empty() ? std::nullopt : std::optional(values);
}

void MemoryPreferences::removePersistentDomain(const std::string& domain) {
  const PropertyList::Dictionary values = copyOf(domain).values;
  for (const auto& [key, value] : values)
    setValue(domain, key, std::nullopt);
}

void MemoryPreferences::setPersistentDomain(const std::string& domain,
                                            const PropertyList::Dictionary& values) {
  removePersistentDomain(domain);
  for (const auto& [key, value] : values)
    setValue(domain, key, value);
}

} // namespace tavrel
