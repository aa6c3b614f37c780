#include "platform/linux/scripts/ScriptApplications.h"

#include "base/PathString.h"
#include "base/Url.h"
#include "platform/Preferences.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/files/DesktopEntry.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "platform/linux/scripts/ScriptKeys.h"
#include "platform/linux/x11/windows/DesktopWindows.h"
#include "script/ScriptError.h"

#include <QString>

#include <algorithm>

namespace tavrel {

using namespace script;

namespace {

std::string fileOf(const std::string& path) {
  return fileUrlOfPath(path, PathIs::file);
}

bool isSameName(const std::string& a, const std::string& b) {
  return QString::fromStdString(a).compare(QString::fromStdString(b), Qt::CaseInsensitive) == 0;
}

// By the displayed name, as the core names the application in front, or by that of the file.
bool isKnownAs(const RunningApplication& application, const std::string& name) {
  return (application.name && isSameName(*application.name, name)) ||
         (application.path &&
          isSameName(deletingPathExtension(lastPathComponent(*application.path)), name));
}

std::optional<RunningApplication> findRunning(ScriptDesktop& desktop, const std::string& name) {
  const std::vector<RunningApplication> launched = desktop.applications.launched();
  const auto found = std::find_if(launched.begin(), launched.end(),
                                  [&](const auto& each) { return isKnownAs(each, name); });
  return found != launched.end() ? std::optional(*found) : std::nullopt;
}

// By the translated name, the untranslated one, or the name of the entry's file.
bool isNamed(const InstalledApplication& application, const std::string& name) {
  const std::string id = application.id.substr(0, application.id.rfind(".desktop"));
  return isSameName(application.entry->name(messagesLocale()), name) ||
         isSameName(application.entry->name(), name) || isSameName(id, name);
}

std::optional<std::string> findInstalled(ScriptDesktop& desktop, const std::string& name) {
  for (const char* role : {"Finder", "Path Finder"})
    if (isSameName(name, role))
      return desktop.rolesFolder + "/" + role + ".desktop";
  desktop.registry.refresh();
  for (const InstalledApplication& each : desktop.registry.applications())
    if (isNamed(each, name))
      return each.path;
  return std::nullopt;
}

HostError noSuchApplication(const std::string& name) {
  return {errors::noSuchObject, "Can’t get application \"" + name + "\"."};
}

HostAnswer launchWith(ScriptDesktop& desktop, const std::string& name,
                      const std::vector<std::string>& paths) {
  const auto entry = findInstalled(desktop, name);
  if (!entry)
    return noSuchApplication(name);
  LaunchRequest request{fileOf(*entry), {}};
  for (const std::string& path : paths)
    request.itemUrls.push_back(fileOf(path));
  if (desktop.workspace.openUrlsWithApplication(request) != 0)
    return HostError{errors::notRunning, "Application \"" + name + "\" can’t be started."};
  return HostValue{};
}

HostAnswer activate(ScriptDesktop& desktop, const HostEvent& event) {
  const auto application = findRunning(desktop, event.application);
  if (!application)
    return launchWith(desktop, event.application, {});
  (void)desktop.applications.bringToFront(application->serialNumber);
  return HostValue{};
}

HostAnswer launch(ScriptDesktop& desktop, const HostEvent& event) {
  return findRunning(desktop, event.application) ? HostAnswer(HostValue{})
                                                 : launchWith(desktop, event.application, {});
}

// Closes its windows one by one, so that the user is asked about unsaved work. To quit an
// application that does not run is no error, but one that is not installed is.
HostAnswer quit(ScriptDesktop& desktop, const HostEvent& event) {
  const auto application = findRunning(desktop, event.application);
  if (!application)
    return findInstalled(desktop, event.application)
               ? HostAnswer(HostValue{})
               : HostAnswer(noSuchApplication(event.application));
  for (WindowId window : desktop.windows.windows()) {
    const auto facts = desktop.windows.facts(window);
    if (facts && facts->pid == application->processIdentifier)
      (void)desktop.windows.close(window);
  }
  return HostValue{};
}

HostAnswer open(ScriptDesktop& desktop, const HostEvent& event) {
  const std::vector<std::string> paths =
      event.direct ? scriptPaths(*event.direct) : std::vector<std::string>();
  if (paths.empty())
    return HostError{errors::missingParameter, "There is no file to open."};
  return launchWith(desktop, event.application, paths);
}

HostAnswer property(ScriptDesktop& desktop, const HostEvent& event, const std::string& name) {
  const auto application = findRunning(desktop, event.application);
  if (name == "running")
    return HostValue{application.has_value()};
  if (!application && !findInstalled(desktop, event.application))
    return noSuchApplication(event.application);
  if (name == "name")
    return HostValue{application && application->name ? *application->name : event.application};
  if (name != "frontmost")
    return HostError{errors::noSuchObject,
                     "Can’t get " + name + " of application \"" + event.application + "\"."};
  const auto front = desktop.applications.active();
  return HostValue{front && application && front->serialNumber == application->serialNumber};
}

HostAnswer get(ScriptDesktop& desktop, const HostEvent& event) {
  const auto* object = event.direct ? std::get_if<ObjectPath>(&event.direct->value) : nullptr;
  const bool isProperty =
      object && object->steps.size() == 1 && object->steps[0].kind == ObjectStep::Kind::property;
  if (isProperty)
    return property(desktop, event, object->steps[0].name);
  return HostError{errors::noSuchObject,
                   "Can’t get that of application \"" + event.application + "\"."};
}

HostAnswer exists(ScriptDesktop& desktop, const HostEvent& event) {
  return HostValue{findInstalled(desktop, event.application).has_value() ||
                   findRunning(desktop, event.application).has_value()};
}

const ScriptCommands& commands() {
  static const ScriptCommands all{{"activate", activate}, {"reopen", activate}, {"launch", launch},
                                  {"run", launch},        {"quit", quit},       {"open", open},
                                  {"get", get},           {"exists", exists}};
  return all;
}

bool isOwnPane(const HostEvent& event) {
  const auto* object = event.direct ? std::get_if<ObjectPath>(&event.direct->value) : nullptr;
  const bool isNamedPane = object && object->steps.size() == 1 && object->steps[0].name == "pane" &&
                           object->steps[0].keys.size() == 1;
  return isNamedPane && isSameName(scriptText(object->steps[0].keys[0]).value_or(""), "Tavrel");
}

HostList processNames(ScriptDesktop& desktop) {
  HostList list;
  for (const RunningApplication& each : desktop.applications.launched())
    list.push_back({each.name.value_or("")});
  return list;
}

// As records, so that scripts can filter them by a property ("whose frontmost is true").
HostList processes(ScriptDesktop& desktop) {
  const auto front = desktop.applications.active();
  HostList list;
  for (const RunningApplication& each : desktop.applications.launched())
    list.push_back({HostRecord{
        {"name", {each.name.value_or("")}},
        {"frontmost", {front.has_value() && front->serialNumber == each.serialNumber}}}});
  return list;
}

HostAnswer getOfProcesses(ScriptDesktop& desktop, const ObjectPath& object) {
  const ObjectStep& which = object.steps[0];
  const bool isEvery = which.kind == ObjectStep::Kind::every;
  if (isEvery && object.steps.size() == 1)
    return HostValue{processes(desktop)};
  if (isEvery && object.steps.size() == 2 && object.steps[1].name == "name")
    return HostValue{processNames(desktop)};
  return HostError{errors::noSuchObject, "Can’t get that process."};
}

HostAnswer askProcesses(ScriptDesktop& desktop, const HostEvent& event) {
  const auto* object = event.direct ? std::get_if<ObjectPath>(&event.direct->value) : nullptr;
  const bool isAboutProcesses =
      object && !object->steps.empty() && object->steps[0].name.ends_with("process");
  if (!isAboutProcesses)
    return askApplication(desktop, event);
  const ObjectStep& which = object->steps[0];
  if (event.command == "count")
    return HostValue{static_cast<std::int64_t>(processNames(desktop).size())};
  if (event.command == "exists" && !which.keys.empty())
    return HostValue{findRunning(desktop, scriptText(which.keys[0]).value_or("")).has_value()};
  if (event.command == "get")
    return getOfProcesses(desktop, *object);
  return HostError{errors::noSuchObject, "Can’t get that process."};
}

} // namespace

HostAnswer askApplication(ScriptDesktop& desktop, const HostEvent& event) {
  const auto command = commands().find(event.command);
  if (command != commands().end())
    return command->second(desktop, event);
  if (!findInstalled(desktop, event.application) && !findRunning(desktop, event.application))
    return noSuchApplication(event.application);
  return HostError{errors::notUnderstood, "application \"" + event.application +
                                              "\" doesn’t understand the “" + event.command +
                                              "” message."};
}

HostAnswer askSystemEvents(ScriptDesktop& desktop, const HostEvent& event) {
  if (event.command == "keystroke")
    return typeKeystroke(desktop, event);
  if (event.command == "key code")
    return typeKeyCode(desktop, event);
  return askProcesses(desktop, event);
}

HostAnswer askPreferences(ScriptDesktop& desktop, const HostEvent& event) {
  const std::string program = "Tavrel Preferences";
  const bool reveals = event.command == "reveal" || event.command == "activate";
  if (!reveals)
    return askApplication(desktop, event);
  if (event.command == "reveal" && !isOwnPane(event))
    return HostError{errors::noSuchObject, "There is no such pane here."};
  if (findInstalled(desktop, program))
    return launchWith(desktop, program, {});
  if (event.command == "reveal")
    desktop.log.write("no preference program is installed; the preferences are in the file " +
                      std::string(preferenceDomain) + ".plist in the person's folder of settings");
  return HostValue{};
}

} // namespace tavrel
