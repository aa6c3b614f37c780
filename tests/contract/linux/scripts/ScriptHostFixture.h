#pragma once

#include "contract/linux/applications/FakeApplications.h"
#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/scripts/LinuxScriptHost.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/system/LinuxSystemLog.h"
#include "platform/linux/x11/clipboard/LinuxPasteboards.h"
#include "platform/linux/x11/keyboard/LinuxKeyboard.h"
#include "platform/linux/x11/selection/LinuxAccessibility.h"
#include "platform/linux/x11/windows/DesktopWindows.h"
#include "script/engine/Engine.h"

#include <gmock/gmock.h>

namespace tavrel {

/// Sounds and log entries are counted, not heard.
struct QuietSounds final : Sounds {
  int beeps = 0;
  bool play(const std::string&) override { return true; }
  void beep() override { ++beeps; }
  std::int32_t alertVolume() override { return 0; }
  void setAlertVolume(std::int32_t) override {}
};

struct KeptLog final : SystemLog {
  std::vector<std::string> lines;
  void write(const std::string& line) override { lines.push_back(line); }
};

/// Scripts that ask the desktop they run on.
class ScriptHostFixture : public ::testing::Test {
protected:
  /// Scripts that run longer than this have a notification.
  explicit ScriptHostFixture(double secondsUntilNotification = 1000)
      : runs(secondsUntilNotification) {}

  /// What the expression gives, or "error N: message".
  std::string result(const std::string& source) {
    const auto loaded = engine.loadSource(source, script::Author::user);
    if (const auto* error = std::get_if<script::ErrorReport>(&loaded))
      return "error " + std::to_string(error->number) + ": " + error->message;
    const script::RunResult run = engine.run(std::get<script::ScriptId>(loaded));
    return run.error ? "error " + std::to_string(run.error->number) + ": " + run.error->message
                     : run.description;
  }
  /// A path of the scratch folder, ready for a source.
  [[nodiscard]] std::string quoted(const std::string& name) const {
    return "\"" + (scratch.path() / name).string() + "\"";
  }
  [[nodiscard]] std::string contents(const std::string& name) const {
    std::ifstream file(scratch.path() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void write(const std::string& name, const std::string& text) const {
    std::ofstream(scratch.path() / name, std::ios::binary) << text;
  }

  ScratchFolder scratch;
  FakeApplications fakes;
  ApplicationRegistry registry{fakes.folders()};
  DesktopWindows windows;
  OwnKeystrokes ownKeystrokes;
  LinuxPasteboards pasteboards;
  LinuxAccessibility accessibility{{registry, windows, ownKeystrokes, pasteboards.clipboard()}};
  LinuxKeyboard keyboard;
  LinuxApplications applications{registry, windows, TAVREL_RESOURCES "/roles"};
  LinuxClock clock;
  QuietSounds sounds;
  KeptLog log;
  LinuxWorkspace workspace{registry, windows};
  LongRunningScripts runs;
  ScriptableApplication* application = nullptr;
  LinuxScriptHost host{{accessibility, applications, clock, keyboard, sounds, log, pasteboards,
                        workspace, registry, windows, TAVREL_RESOURCES "/roles",
                        [this] { return application; }},
                       runs};
  script::Engine engine{host};
};

} // namespace tavrel
