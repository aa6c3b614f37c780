#include "maint/NTLoginItemMgr.h"

#include "platform/Platform.h"
#include "platform/Preferences.h"

#include <algorithm>
#include <optional>

namespace tavrel {

namespace {

constexpr const char* loginWindow = "loginwindow";
constexpr const char* launchedApplications = "AutoLaunchedApplicationDictionary";

using Domain = PropertyList::Dictionary;
using Items = PropertyList::Array;

Domain readDomain() {
  return platform().preferences.persistentDomain(loginWindow).value_or(Domain());
}

Items itemsOf(const Domain& domain) {
  const auto found = domain.find(launchedApplications);
  const Items* items = found == domain.end() ? nullptr : found->second.array();
  return items ? *items : Items();
}

void write(Domain domain, Items items) {
  domain.insert_or_assign(launchedApplications, std::move(items));
  Preferences& preferences = platform().preferences;
  preferences.removePersistentDomain(loginWindow);
  preferences.setPersistentDomain(loginWindow, domain);
  preferences.synchronize(loginWindow);
}

Items::const_iterator itemAt(const Items& items, const std::string& path) {
  return std::ranges::find_if(items, [&](const PropertyList& item) {
    const std::string* listed = item.stringFor("Path");
    return listed && *listed == path;
  });
}

} // namespace

int NTLoginItemMgr::loginIndex(const std::string& path) {
  const Items items = itemsOf(readDomain());
  const auto found = itemAt(items, path);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

bool NTLoginItemMgr::isLoginItem(const std::string& path) {
  return loginIndex(path) != -1;
}

void NTLoginItemMgr::addLoginItem(const std::string& path, LoginHide hide) {
  removeLoginItem(path);
  Domain domain = readDomain();
  Items items = itemsOf(domain);
  items.emplace_back(Domain{{"Hide", hide == LoginHide::yes}, {"Path", path}});
  write(std::move(domain), std::move(items));
}

void NTLoginItemMgr::removeLoginItem(const std::string& path) {
  Domain domain = readDomain();
  Items items = itemsOf(domain);
  const auto found = itemAt(items, path);
  if (found == items.end())
    return;
  items.erase(found);
  write(std::move(domain), std::move(items));
}

void NTLoginItemMgr::reorderLoginItemToEnd(const std::string& path, LoginHide hide) {
  if (loginIndex(path) != 0)
    return;
  removeLoginItem(path);
  addLoginItem(path, hide);
}

} // namespace tavrel
