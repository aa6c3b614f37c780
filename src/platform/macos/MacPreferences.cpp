#include "platform/macos/MacPreferences.h"

#include "platform/macos/Conversions.h"

namespace tavrel {

namespace {

// The system takes a name with a slash in it for the path of a file.
bool namesDomain(const std::string& domain) {
  return !domain.empty() && domain.find('/') == std::string::npos &&
         domain.find('\0') == std::string::npos;
}

PropertyList::Dictionary readDomain(const std::string& domain) {
  if (!namesDomain(domain))
    return {};
  const CFOwned<CFDictionaryRef> values(CFPreferencesCopyMultiple(
      nullptr, cfString(domain).get(), kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
  return values ? dictionaryOf(values.get()) : PropertyList::Dictionary();
}

void writeValue(const std::string& domain, const std::string& key,
                const std::optional<PropertyList>& value) {
  const CFOwned<CFTypeRef> object = value ? cfPropertyList(*value) : nullptr;
  CFPreferencesSetValue(cfString(key).get(), object.get(), cfString(domain).get(),
                        kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
}

bool exchangeDomain(const std::string& domain) {
  return CFPreferencesSynchronize(cfString(domain).get(), kCFPreferencesCurrentUser,
                                  kCFPreferencesAnyHost);
}

} // namespace

MacPreferences::~MacPreferences() {
  for (const std::string& domain : changed_)
    if (namesDomain(domain))
      exchangeDomain(domain);
}

// The system may let in what other programs write at any time; readers are promised a copy.
PropertyList::Dictionary& MacPreferences::opened(const std::string& domain) {
  const auto [place, added] = copies_.try_emplace(domain);
  if (added)
    place->second = readDomain(domain);
  return place->second;
}

std::optional<PropertyList> MacPreferences::value(const std::string& domain,
                                                  const std::string& key) {
  const auto& values = opened(domain);
  const auto found = values.find(key);
  return found == values.end() ? std::nullopt : std::optional(found->second);
}

void MacPreferences::setValue(const std::string& domain, const std::string& key,
                              std::optional<PropertyList> value) {
  PropertyList::Dictionary& values = opened(domain);
  if (namesDomain(domain))
    writeValue(domain, key, value);
  changed_.insert(domain);
  if (value)
    values.insert_or_assign(key, *std::move(value));
  else
    values.erase(key);
}

bool MacPreferences::synchronize(const std::string& domain) {
  if (!namesDomain(domain))
    return !changed_.contains(domain);
  const bool written = exchangeDomain(domain);
  if (written)
    changed_.erase(domain);
  copies_.insert_or_assign(domain, readDomain(domain));
  return written || !changed_.contains(domain);
}

std::optional<PropertyList::Dictionary>
MacPreferences::persistentDomain(const std::string& domain) {
  const auto& values = opened(domain);
  return values.empty() ? std::nullopt : std::optional(values);
}

void MacPreferences::removePersistentDomain(const std::string& domain) {
  const PropertyList::Dictionary values = opened(domain);
  for (const auto& [key, value] : values)
    setValue(domain, key, std::nullopt);
}

void MacPreferences::setPersistentDomain(const std::string& domain,
                                         const PropertyList::Dictionary& values) {
  removePersistentDomain(domain);
  for (const auto& [key, value] : values)
    setValue(domain, key, value);
}

} // namespace tavrel
