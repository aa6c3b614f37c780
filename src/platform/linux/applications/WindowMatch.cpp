#include "platform/linux/applications/WindowMatch.h"

#include "platform/linux/applications/ApplicationNames.h"

#include <algorithm>
#include <array>
#include <functional>

namespace tavrel {

namespace {

std::string lowered(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
  });
  return text;
}

std::string baseName(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

using Matches = std::function<bool(const InstalledApplication&)>;

/// The first entry that matches; one that is shown in menus is preferred to a hidden helper of the
/// same application.
const InstalledApplication* firstMatch(const ApplicationRegistry& registry,
                                       const Matches& matches) {
  const InstalledApplication* helper = nullptr;
  for (const InstalledApplication& each : registry.applications())
    if (matches(each)) {
      if (!each.entry->noDisplay())
        return &each;
      if (helper == nullptr)
        helper = &each;
    }
  return helper;
}

const InstalledApplication* named(const std::string& id, const ApplicationRegistry& registry) {
  if (id.empty())
    return nullptr;
  if (id.starts_with('/'))
    return firstMatch(registry, [&](const InstalledApplication& each) { return each.path == id; });
  const InstalledApplication* exact = registry.find(id);
  return exact != nullptr ? exact : registry.find(id + ".desktop");
}

bool isOneOf(const std::string& text, const std::vector<std::string>& names) {
  return !text.empty() && std::ranges::find(names, lowered(text)) != names.end();
}

} // namespace

bool isInterpreter(const std::string& executable) {
  constexpr std::array<std::string_view, 13> names = {"python", "perl",     "ruby", "node", "java",
                                                      "bash",   "dash",     "sh",   "gjs",  "wine",
                                                      "mono",   "electron", "lua"};
  std::string name = baseName(executable);
  name.resize(name.find_last_not_of("0123456789.-") + 1);
  return std::ranges::find(names, name) != names.end();
}

const InstalledApplication* applicationOf(const WindowFacts& window, const std::string& executable,
                                          const ApplicationRegistry& registry) {
  if (const InstalledApplication* identified = named(window.applicationId, registry))
    return identified;
  std::vector<std::string> names;
  for (const std::string& name : {window.windowClass, window.instance})
    if (!name.empty())
      names.push_back(lowered(name));
  std::vector<std::string> programs = names;
  if (!executable.empty() && !isInterpreter(executable))
    programs.push_back(lowered(baseName(executable)));

  const std::array<Matches, 4> tests = {
      [&](const auto& each) { return isOneOf(each.entry->startupWmClass(), names); },
      [&](const auto& each) { return isOneOf(stemOf(each), names); },
      [&](const auto& each) { return isOneOf(programOf(each), programs); },
      [&](const auto& each) {
        const std::string stem = stemOf(each);
        return stem.find('.') != std::string::npos &&
               isOneOf(stem.substr(stem.rfind('.') + 1), names);
      }};
  for (const Matches& test : tests)
    if (const InstalledApplication* found = firstMatch(registry, test))
      return found;
  return nullptr;
}

} // namespace tavrel
