#pragma once

#include <QLoggingCategory>

namespace tavrel {
Q_DECLARE_LOGGING_CATEGORY(clipboardLog)
} // namespace tavrel
