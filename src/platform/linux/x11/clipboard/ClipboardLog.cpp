#include "platform/linux/x11/clipboard/ClipboardLog.h"

namespace tavrel {
Q_LOGGING_CATEGORY(clipboardLog, "tavrel.clipboard")
} // namespace tavrel
