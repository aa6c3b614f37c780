#pragma once

#include "platform/linux/files/DesktopEntry.h"

#include <string>

namespace tavrel {

class DesktopWindows;

/// Tells the desktop that an application starts on a person's wish, so that its window may come to
/// the front, and shows that it is under way.
class StartupNotice {
public:
  StartupNotice(DesktopWindows& windows, const DesktopEntry& entry, const std::string& entryPath);

  /// What the application is told about its start; empty without a desktop to tell.
  [[nodiscard]] const std::string& id() const { return id_; }

  /// The application did not start after all.
  void withdraw();

private:
  DesktopWindows& windows_;
  std::string id_;
  bool announced_ = false;
};

} // namespace tavrel
