#include "platform/linux/installation/InstalledComponents.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {

enum class ComponentOwner { system, user };

struct KnownComponent {
  InstalledComponent component;
  ComponentOwner owner;
  const char* name;
  const char* path;         ///< as the application names it
  const char* relativePath; ///< where it is installed
};

constexpr const char* pluginPath = "/Library/Contextual Menu Items/Tavrel.plugin";
constexpr const char* panePath = "/Library/PreferencePanes/TavrelPref.prefPane";

constexpr std::array<KnownComponent, 4> knownComponents{
    {{InstalledComponent::systemPlugin, ComponentOwner::system, "system-plugin", pluginPath,
      "lib/tavrel/Tavrel.plugin"},
     {InstalledComponent::userPlugin, ComponentOwner::user, "person-plugin", pluginPath,
      ".local/lib/tavrel/Tavrel.plugin"},
     {InstalledComponent::systemPane, ComponentOwner::system, "system-pane", panePath,
      "lib/tavrel/TavrelPref.prefPane"},
     {InstalledComponent::userPane, ComponentOwner::user, "person-pane", panePath,
      ".local/lib/tavrel/TavrelPref.prefPane"}}};

template <class Matches> std::optional<InstalledComponent> componentThat(Matches matches) {
  const auto* found = std::ranges::find_if(knownComponents, matches);
  return found == knownComponents.end() ? std::nullopt : std::optional(found->component);
}

const KnownComponent& known(InstalledComponent component) {
  return *std::ranges::find(knownComponents, component, &KnownComponent::component);
}

} // namespace

std::optional<InstalledComponent> installedComponent(const std::string& path,
                                                     const std::string& home) {
  return componentThat([&](const KnownComponent& each) {
    std::string known = each.owner == ComponentOwner::user ? home : std::string();
    return path == known.append(each.path);
  });
}

ComponentLocation locationOf(InstalledComponent component, const InstallationFolders& folders) {
  const KnownComponent& each = known(component);
  return {each.owner == ComponentOwner::user ? folders.home : folders.prefix, each.relativePath};
}

const char* componentName(InstalledComponent component) {
  return known(component).name;
}

std::optional<InstalledComponent> componentNamed(const std::string& name) {
  return componentThat([&](const KnownComponent& each) { return name == each.name; });
}

} // namespace tavrel
