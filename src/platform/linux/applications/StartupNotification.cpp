#include "platform/linux/applications/StartupNotification.h"

#include "platform/linux/x11/windows/DesktopWindows.h"

#include <atomic>
#include <unistd.h>

namespace tavrel {

namespace {

std::string newId(std::uint32_t time) {
  static std::atomic<unsigned> counter = 0;
  return "tavrel-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) + "_TIME" +
         std::to_string(time);
}

std::string quotedValue(const std::string& text) {
  std::string result = "\"";
  for (const char each : text) {
    if (each == '"' || each == '\\')
      result += '\\';
    result += each;
  }
  return result + "\"";
}

} // namespace

StartupNotification::StartupNotification(DesktopWindows& windows, const DesktopEntry& entry,
                                         const std::string& entryPath)
    : windows_(windows), isAnnounced_(entry.startupNotify()) {
  const std::uint32_t time = windows.serverTime();
  if (time == 0)
    return;
  id_ = newId(time);
  if (!isAnnounced_)
    return;
  std::string message =
      "new: ID=" + quotedValue(id_) + " NAME=" + quotedValue(entry.name(messagesLocale())) +
      " SCREEN=0 TIMESTAMP=" + std::to_string(time) + " APPLICATION_ID=" + quotedValue(entryPath);
  if (!entry.startupWmClass().empty())
    message += " WMCLASS=" + quotedValue(entry.startupWmClass());
  if (!entry.icon().empty())
    message += " ICON=" + quotedValue(entry.icon());
  windows_.broadcastStartup(message);
}

void StartupNotification::withdraw() {
  if (isAnnounced_ && !id_.empty())
    windows_.broadcastStartup("remove: ID=" + quotedValue(id_));
}

} // namespace tavrel
