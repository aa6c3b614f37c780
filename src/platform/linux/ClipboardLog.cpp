#include "platform/linux/ClipboardLog.h"

namespace tavrel {
Q_LOGGING_CATEGORY(clipboardLog, "tavrel.clipboard")
} // namespace tavrel
