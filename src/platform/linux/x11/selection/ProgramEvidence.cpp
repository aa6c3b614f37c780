#include "platform/linux/x11/selection/ProgramEvidence.h"

#include "platform/linux/accessibility/AccessibilityBus.h"
#include "platform/linux/applications/ExecLine.h"
#include "platform/linux/applications/FileManagerRoles.h"
#include "platform/linux/applications/TerminalWindows.h"
#include "platform/linux/applications/WindowMatch.h"
#include "platform/linux/processes/MappedFiles.h"
#include "platform/linux/processes/ProcessFacts.h"
#include "platform/linux/system/UserFolders.h"

#include <QDeadlineTimer>
#include <QString>

#include <algorithm>
#include <array>
#include <string_view>
#include <thread>

namespace tavrel {

namespace {

constexpr int focusTimeout = 160; // in milliseconds

struct ToolkitFile {
  std::string_view beginning;
  Toolkit toolkit;
};

constexpr auto toolkitFiles = std::to_array<ToolkitFile>({
    {"libgtk-3.so", Toolkit::common},
    {"libgtk-4.so", Toolkit::common},
    {"libgtk-x11-2.0.so", Toolkit::common},
    {"libQt5Gui.so", Toolkit::common},
    {"libQt6Gui.so", Toolkit::common},
    {"libawt_xawt.so", Toolkit::common},
    {"libtk8.", Toolkit::common},
    {"winex11", Toolkit::common},
    {"libvcllo.so", Toolkit::office},
    {"libmergedlo.so", Toolkit::office},
    {"libxul.so", Toolkit::multiProcess},
    {"chrome_100_percent.pak", Toolkit::multiProcess},
    {"libwebkit2gtk-", Toolkit::multiProcess},
    {"libwebkitgtk-", Toolkit::multiProcess},
    {"libQt5WebEngineCore.so", Toolkit::multiProcess},
    {"libQt6WebEngineCore.so", Toolkit::multiProcess},
});

// Terminals and other machines' screens as parts of windows.
constexpr auto handingOnFiles = std::to_array<std::string_view>(
    {"libvte-", "konsolepart.so", "libkonsoleprivate.so", "libkonsoleapp.so", "libqtermwidget",
     "libspice-client-gtk", "UICommon.so", "libgtk-vnc-", "libvncclient.so", "libfreerdp"});

std::string programOf(const WindowFacts& window) {
  const std::string path = executableOf(window.pid);
  return path.substr(path.rfind('/') + 1);
}

// A terminal that only its category tells of may pass Ctrl+Shift+V on to what runs in it.
TerminalKind terminalKind(const WindowFacts& window, ApplicationRegistry& registry) {
  if (isBareTerminal(window))
    return TerminalKind::bare;
  if (isKnownTerminal(window))
    return TerminalKind::withPasteKey;
  return isTerminal(window, registry) ? TerminalKind::bare : TerminalKind::none;
}

std::string programIn(const InstalledApplication& application) {
  const auto line = splitExec(application.entry->exec());
  return line ? line->front().substr(line->front().rfind('/') + 1) : std::string();
}

bool isEditor(const ProgramEvidence& evidence) {
  constexpr std::array<std::string_view, 2> editorCategories{"Development", "TextEditor"};
  return std::ranges::any_of(evidence.categories, [&](const std::string& each) {
    return std::ranges::find(editorCategories, each) != editorCategories.end();
  });
}

// Some file managers have an entry of their own for opening folders (Caja 1.26), but editors open
// folders, too.
bool isFileManager(const InstalledApplication& application, const ProgramEvidence& evidence,
                   const ApplicationRegistry& registry) {
  if (rolePlayedBy(application, fileManagers(registry)))
    return true;
  return !isEditor(evidence) &&
         std::ranges::any_of(registry.handlersOf("inode/directory"),
                             [&](const InstalledApplication* handler) {
                               return programIn(*handler) == evidence.program;
                             });
}

void addMappedFiles(ProgramEvidence& evidence, std::int32_t process) {
  forEachMappedFile(process, [&](std::string_view file) {
    for (const ToolkitFile& each : toolkitFiles)
      if (file.starts_with(each.beginning))
        evidence.toolkit = std::max(evidence.toolkit, each.toolkit);
    evidence.isJava = evidence.isJava || file.starts_with("libawt_xawt.so");
    evidence.handsKeysOn =
        evidence.handsKeysOn ||
        std::ranges::any_of(handingOnFiles, [&](auto each) { return file.starts_with(each); });
  });
}

bool isSameName(const std::string& one, const std::string& other) {
  return !one.empty() && QString::fromStdString(one).compare(QString::fromStdString(other),
                                                             Qt::CaseInsensitive) == 0;
}

bool isNamedIn(const std::vector<std::string>& names, const ProgramEvidence& evidence,
               const InstalledApplication* application) {
  return std::ranges::any_of(names, [&](const std::string& name) {
    const bool isEntry =
        application != nullptr &&
        (isSameName(application->entry->name(messagesLocale()), name) ||
         isSameName(application->id, name) || isSameName(application->id, name + ".desktop"));
    return isEntry || isSameName(evidence.program, name) || isSameName(evidence.windowClass, name);
  });
}

const InstalledApplication* entryOf(const WindowFacts& window, ApplicationRegistry& registry) {
  registry.refresh();
  return applicationOf(window, executableOf(window.pid), registry);
}

} // namespace

ProgramEvidence programEvidence(const WindowFacts& window, ApplicationRegistry& registry,
                                const std::vector<std::string>& exceptions) {
  ProgramEvidence evidence;
  evidence.program = programOf(window);
  evidence.windowClass = window.windowClass;
  evidence.terminal = terminalKind(window, registry);
  const InstalledApplication* application = entryOf(window, registry);
  if (application != nullptr) {
    evidence.categories = application->entry->categories();
    evidence.isFileManager = isFileManager(*application, evidence, registry);
  }
  evidence.isExcepted = isNamedIn(exceptions, evidence, application);
  if (evidence.terminal != TerminalKind::none || evidence.isExcepted)
    return evidence;
  addMappedFiles(evidence, window.pid);
  // Editors that are drawn by a browser or by Java have terminals that no file tells of.
  if (isEditor(evidence) && (evidence.toolkit == Toolkit::multiProcess || evidence.isJava))
    evidence.handsKeysOn = true;
  return evidence;
}

// A window that our grab has been released for has the keyboard again a moment later.
std::vector<std::uint32_t> focusedRoles(std::int32_t process, AccessibilityBus& bus) {
  const QDeadlineTimer deadline(focusTimeout);
  auto roles = bus.focusedRoles(process, deadline);
  while (roles && roles->empty()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    roles = bus.focusedRoles(process, deadline);
  }
  return roles.value_or(std::vector<std::uint32_t>());
}

std::string programName(const WindowFacts& window, ApplicationRegistry& registry) {
  if (const InstalledApplication* application = entryOf(window, registry))
    return application->entry->name(messagesLocale());
  return window.windowClass.empty() ? programOf(window) : window.windowClass;
}

} // namespace tavrel
