#pragma once

#include "base/PropertyList.h"
#include "platform/Event.h"
#include "platform/ScriptableApplication.h"

#include <functional>
#include <optional>
#include <string>

namespace tavrel {

/// Runs the item bound to a hot key; true when an item was run.
using HotKeyHandler = std::function<bool(std::uint64_t reference)>;

/// The application object: the head of the event stream, and what scripts ask of it.
class TVApplication final : public EventTarget, public ScriptableApplication {
public:
  /// `base` is the desktop's own handling of events, where each one goes in the end.
  explicit TVApplication(EventTarget& base);

  /// Hands the release of a hot key to the handler, then passes every event on.
  void sendEvent(const Event& event) override;
  void setHotKeyHandler(HotKeyHandler handler);

  /// The application in front when the menu was last called up; nothing before the first time.
  [[nodiscard]] std::optional<std::string> hostAppName() const override;
  void setHostName(std::optional<std::string> name);

  /// The first localization the user prefers, "English" when there is none.
  [[nodiscard]] std::string currentLocalization() const override;

  /// The bundle's long version text, read anew each time; nothing when the bundle names none.
  [[nodiscard]] std::optional<std::string> longVersion() override;

  /// Kept, and deliberately never answered: the selection is what was captured.
  void setContextObject(std::optional<PropertyList> object);

  // What scripts ask for, and their commands (scripting/)
  /// The captured selection as one value: an array of paths, a string or image data.
  [[nodiscard]] std::optional<PropertyList> contextObject() const override;
  void handleCopyToClipboardScriptCommand() override;
  [[nodiscard]] PropertyList handleConvertScriptCommand(const ScriptArguments& arguments) override;
  void handleUninstallScriptCommand() override;

private:
  EventTarget& base_;
  HotKeyHandler performHotkey_;
  std::optional<std::string> hostAppName_;
  std::optional<std::string> longVersion_;
  std::optional<PropertyList> contextObject_;
};

} // namespace tavrel
