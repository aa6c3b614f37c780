#pragma once

#include "controller/Gestures.h"
#include "controller/HostContext.h"
#include "controller/HotKeyRecord.h"
#include "controller/LauncherMenu.h"
#include "controller/MenuImages.h"
#include "controller/PopupPanel.h"
#include "controller/Settings.h"
#include "platform/Accessibility.h"
#include "platform/MenuActionTarget.h"
#include "platform/NotificationCenter.h"
#include "platform/Services.h"
#include "platform/StatusBar.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class TVApplication;

/// The central controller: it owns every long-lived object of the application and answers what
/// the desktop tells it. Each folder defines its own group of operations; the state that they share
/// is private, a struct for each matter.
class TVController final : public MenuDelegate, public MenuActionTarget, public ServicesProvider {
public:
  explicit TVController(TVApplication& application);
  ~TVController() override;

  // Launch (app/)
  void applicationWillFinishLaunching();
  void applicationDidFinishLaunching();
  /// Reads every setting and the tree anew and puts them into effect.
  void receiveNotificationFromPrefrences(const Notification& notification);

  // Menus (menu/)
  /// Fills an empty menu from records; level 0 gets the fixed entries, too.
  void createContextMenu(Menu& menu, const PropertyList::Array& array, int level);
  /// Fits the entries to the application in front and to what is selected there: hides what does
  /// not apply. `array` is not read.
  void validateContextMenu(Menu& menu, const PropertyList::Array& array, int level);
  /// Whether the entry of this record does not apply now.
  [[nodiscard]] bool isHideItem(const PropertyList& item) const;

  /// Fills a submenu that is about to open, by its title: running applications, recent items, or
  /// what is in the folder of that path.
  void attachFolderContentsFor(Menu& menu);
  /// Opens what a recent entry stands for; with Command it is revealed.
  void recentItemSelected(MenuItem& menuItem);
  /// Brings the application of an entry to the front; with Option it is asked to quit, with Command
  /// revealed.
  void processItemSelected(MenuItem& menuItem);

  // The status item (invoke/)
  void createStatusMenu();
  void activateStatusMenu();
  void deactivateStatusMenu();
  void menuWillOpen(Menu& menu) override;
  void menuDidClose(Menu& menu) override;
  void menuNeedsUpdate(Menu& menu) override;
  void menuItemChosen(MenuItem& item) override;
  void statusMenuDidSelected(MenuItem& menuItem);

  // Hot keys (invoke/)
  /// Clears all hot keys and registers those of the tree and of the pop-up anew.
  void registerHotkeys();
  void registerHotkeysForMenuArray(const PropertyList::Array& array);
  /// `modifiers` in the interface form; `targetItem` nothing: the key opens the pop-up.
  void addHotKey(std::uint16_t character, std::uint32_t modifiers, std::uint32_t keyCode,
                 const std::optional<PropertyList>& targetItem);
  /// `carbonModifiers` in the event-manager form.
  void addHotKey2(std::uint16_t character, std::uint32_t carbonModifiers, std::uint32_t keyCode,
                  const std::optional<PropertyList>& targetItem);
  void unregisterHotKey(const HotKeyRecord& record);
  void unregisterAllHotkeys();
  /// A hot key was released; true when an item was run.
  bool performHotkey(EventHotKeyRef reference);
  /// Hands the stored keystroke on to the application in front.
  void performAppHotkey();

  // The pop-up at the pointer (invoke/)
  /// Shows the pop-up, unless it is only wanted over the Finder and another application is in
  /// front.
  void doubleTapNotification();
  void performContextMenu();
  void invokeTavrelPopup(Pasteboard* pasteboard, const std::string& userData,
                         std::string* error) override;
  /// The role of what lies under a point of the screen; nothing where that is no target.
  [[nodiscard]] std::optional<std::string> targetUIElementAt(Point point);
  /// Silences the beep for so many seconds.
  void stopBeepSoundFor(float seconds);
  void startBeepSound();

  // The selection (selection/)
  /// Captures what is selected in an application, through a copy keystroke.
  void setSelectionToPasteboard(const AXUIElementRef& application);
  /// The same through the script that we have for an application of this name.
  void setSelectionToPasteboardWithScript(const std::string& name);

  // Actions (exec/)
  /// Carries out an item. `menuItem` is the chosen entry, null from a hot key.
  void executeItem(const PropertyList& item, bool fromHotKey, const MenuItem* menuItem);
  void fileItemDidSelected(MenuItem& menuItem);
  void openFolder(const std::string& path);
  /// Lets a service work on the captured selection; what it answers within a second is pasted into
  /// the application in front.
  void performServiceItem(const std::string& serviceName);
  /// The settings entry: its alternate adds the captured files to the tree first.
  void openTavrelPref(MenuItem& menuItem);
  void insertFileItemsToPlist(const std::vector<std::string>& paths);

  // The contextual-menu plug-in (bridge/)
  /// Carries out what the plug-in asks for; a name it does not know is ignored.
  void receiveNotificationFromContextMenu(const Notification& notification);

private:
  friend struct ControllerState; // the tests' view

  void addFixedTop(Menu& menu);
  void addFixedBottom(Menu& menu);
  void fitSelectedFolderEntry(Menu& menu);
  /// Takes over the name of the application in front; its process, nothing when none is.
  [[nodiscard]] std::optional<std::int32_t> recordFrontApplication();
  void captureFrontSelection();
  void prepareStatusMenu();

  void armDoubleTap();
  void armLongPress();
  void captureForHotKey();
  bool handOnKeystroke();
  bool performHotkeyItem(const HotKeyRecord& record);
  void observeOtherPrograms();
  void execScriptFor(const PropertyList::Dictionary& userInfo);
  /// Captures what is selected in front, lets a service work on it and pastes its answer as soon as
  /// it is there.
  void execServices(const std::string& serviceName);

  TVApplication& application_;
  Settings settings_;
  MenuImages images_;
  LauncherMenu launcher_;
  PopupPanel popupPanel_;
  HostContext host_;
  Gestures gestures_;
  std::vector<ObserverId> distributedObservers_;
  /// Expires with the controller: timers hold it weakly and do nothing then.
  std::shared_ptr<const char> alive_ = std::make_shared<const char>();
};

} // namespace tavrel
