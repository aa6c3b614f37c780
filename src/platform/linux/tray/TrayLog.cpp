#include "platform/linux/tray/TrayLog.h"

namespace tavrel {
Q_LOGGING_CATEGORY(trayLog, "tavrel.tray")
} // namespace tavrel
