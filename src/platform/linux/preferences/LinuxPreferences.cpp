#include "platform/linux/preferences/LinuxPreferences.h"

#include "base/PathString.h"
#include "platform/linux/system/FileReplacement.h"

#include <QLoggingCategory>

#include <cstdlib>
#include <utility>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(preferencesLog, "tavrel.preferences")

void warn(const std::string& path, const std::string& problem) {
  qCWarning(preferencesLog, "%s: %s", path.c_str(), problem.c_str());
}

// Whether a domain's name can be a file name.
bool isFileName(const std::string& domain) {
  return !domain.empty() && domain != "." && domain != ".." &&
         domain.find('/') == std::string::npos && domain.find('\0') == std::string::npos;
}

bool isUsable(const PropertyListFile& file) {
  return file.problem.empty();
}

PropertyListFile readFirst(PropertyListReader& reader, const std::string& path) {
  PropertyListFile file = reader.read(path);
  if (!isUsable(file))
    warn(path, file.problem + "; it counts as empty and is left alone");
  return file;
}

// A malformed file may be one that an editor is still writing: the values read before stay.
PropertyListFile readAgain(PropertyListReader& reader, const std::string& path,
                           const PropertyList::Dictionary& before) {
  PropertyListFile file = reader.read(path);
  if (isUsable(file))
    return file;
  warn(path, file.problem + "; what was read before stays in effect");
  file.values = before;
  return file;
}

void apply(PropertyList::Dictionary& values, const std::string& key,
           const std::optional<PropertyList>& value) {
  if (value)
    values.insert_or_assign(key, *value);
  else
    values.erase(key);
}

bool moveMalformedAside(const PropertyListFile& file, const std::string& path) {
  if (file.state == PropertyListFileState::unreadable)
    return false;
  if (file.state != PropertyListFileState::malformed)
    return true;
  const auto aside = moveAside(path);
  warn(path, aside ? "kept as " + *aside : "cannot be moved aside; nothing is written");
  return aside.has_value();
}

bool write(const std::string& path, const PropertyList::Dictionary& values, PropertyListForm form) {
  const auto bytes = encodePropertyList(values, form);
  const std::string problem = bytes ? replaceFile(path, *bytes) : "nests too deep to be written";
  if (!problem.empty())
    warn(path, problem + "; nothing is written");
  return problem.empty();
}

} // namespace

LinuxPreferences::~LinuxPreferences() {
  for (const auto& [name, domain] : domains_)
    if (!domain.pending.empty())
      synchronize(name);
}

LinuxPreferences::Domain& LinuxPreferences::loadedDomain(const std::string& name) {
  const auto [place, added] = domains_.try_emplace(name);
  if (added && renewView(name, place->second))
    return place->second;
  if (added && isFileName(name))
    place->second.values = readFirst(place->second.reader, pathOf(name)).values;
  else if (added)
    warn(name, "cannot name a preference file");
  return place->second;
}

std::string LinuxPreferences::pathOf(const std::string& domain) const {
  return appendingPathComponent(folder_, domain + ".plist");
}

bool LinuxPreferences::hasChangedElsewhere(const std::string& name) {
  Domain& domain = loadedDomain(name);
  const PropertyListFile file = readAgain(domain.reader, pathOf(name), domain.values);
  PropertyList::Dictionary expected = file.values;
  for (const auto& [key, value] : domain.pending)
    apply(expected, key, value);
  return expected != domain.values;
}

bool LinuxPreferences::renewView(const std::string& name, Domain& domain) {
  const auto view = views_.find(name);
  if (view == views_.end())
    return false;
  domain.values = view->second.read();
  return true;
}

std::optional<PropertyList> LinuxPreferences::value(const std::string& domain,
                                                    const std::string& key) {
  const auto& values = loadedDomain(domain).values;
  const auto found = values.find(key);
  return found == values.end() ? std::nullopt : std::optional(found->second);
}

void LinuxPreferences::setValue(const std::string& domain, const std::string& key,
                                std::optional<PropertyList> value) {
  Domain& changed = loadedDomain(domain);
  apply(changed.values, key, value);
  changed.pending.insert_or_assign(key, std::move(value));
}

bool LinuxPreferences::synchronizeView(const View& view, Domain& domain) {
  const Changes pending = std::exchange(domain.pending, {});
  domain.values = view.read();
  if (pending.empty() || !view.write)
    return pending.empty();
  for (const auto& [key, value] : pending)
    apply(domain.values, key, value);
  const bool written = view.write(domain.values);
  domain.values = view.read();
  return written;
}

bool LinuxPreferences::synchronize(const std::string& name) {
  Domain& domain = loadedDomain(name);
  if (const auto view = views_.find(name); view != views_.end())
    return synchronizeView(view->second, domain);
  if (!isFileName(name))
    return domain.pending.empty();
  const std::string path = pathOf(name);
  PropertyListFile file = readAgain(domain.reader, path, domain.values);
  for (const auto& [key, value] : domain.pending)
    apply(file.values, key, value);
  domain.values = file.values;
  if (domain.pending.empty())
    return true;
  if (!moveMalformedAside(file, path) || !write(path, file.values, file.form))
    return false;
  domain.pending.clear();
  return true;
}

std::optional<PropertyList::Dictionary>
LinuxPreferences::persistentDomain(const std::string& domain) {
  Domain& asked = loadedDomain(domain);
  if (asked.pending.empty())
    renewView(domain,
              asked); // the caller may write it back whole, with what others added meanwhile
  const auto& values = asked.values;
  return values.empty() ? std::nullopt : std::optional(values);
}

void LinuxPreferences::removePersistentDomain(const std::string& domain) {
  const PropertyList::Dictionary values = loadedDomain(domain).values;
  for (const auto& [key, value] : values)
    setValue(domain, key, std::nullopt);
}

void LinuxPreferences::setPersistentDomain(const std::string& domain,
                                           const PropertyList::Dictionary& values) {
  removePersistentDomain(domain);
  for (const auto& [key, value] : values)
    setValue(domain, key, value);
}

} // namespace tavrel
