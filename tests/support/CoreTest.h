#pragma once

#include "base/Modifiers.h"
#include "controller/PreferenceStore.h"
#include "controller/ProcessState.h"
#include "controller/SettingKeys.h"
#include "controller/SystemVersion.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "exec/TVAppleScript.h"
#include "invoke/LongPress.h"
#include "invoke/NTModifierKeyActionHandler.h"
#include "menu/ItemRecord.h"
#include "menu/MenuIcons.h"
#include "platform/memory/MemoryDesktop.h"
#include "platform/memory/MenuText.h"
#include "selection/PrivatePasteboard.h"
#include "support/ControllerState.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// Writes down the events that reach the end of the stream.
struct RecordedEvents final : EventTarget {
  std::vector<Event> events;
  void sendEvent(const Event& event) override { events.push_back(event); }
};

/// A memory desktop in place, and the process-wide state as it is before launch.
class CoreTest : public ::testing::Test {
protected:
  CoreTest() {
    resetProcessState();
    gOsVersion = 0x1068;
  }

  void set(const std::string& key, PropertyList value) {
    desktop.preferences.control.store[preferenceDomain].insert_or_assign(key, std::move(value));
  }

  void setTree(PropertyList::Array records) { set(TVR_MenuTree, std::move(records)); }

  void capture(const std::vector<std::string>& paths,
               const char* type = pasteboardType::filenames) {
    privatePasteboard().declareTypes({type});
    privatePasteboard().setPropertyList(PropertyList::Array(paths.begin(), paths.end()), type);
  }

  void hold(std::uint16_t key) { desktop.keyboard.control.down.set(key); }

  MemoryDesktop desktop;
  ScopedPlatform scope{desktop.ports};
};

/// A controller on it, not launched yet.
class ControllerTest : public CoreTest {
protected:
  RecordedEvents base;
  TVApplication application{base};
  TVController controller{application};
  ControllerState state{controller};
};

/// A record of the tree, with whatever other keys it has.
inline PropertyList record(const char* type, const char* title,
                           PropertyList::Dictionary more = {}) {
  more.insert({{TVR_MenuItemType, type}, {TVR_MenuItemTitle, title}});
  return more;
}

/// A record of a file.
inline PropertyList fileRecord(const char* type, const char* title, const std::string& url) {
  return record(type, title, {{TVR_MenuItemURL, url}});
}

} // namespace tavrel
