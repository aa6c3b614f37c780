#include "platform/linux/system/LinuxSystemLog.h"

#include <QDebug>
#include <QLoggingCategory>
#include <QString>

#include <cstdio>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(menuLog, "tavrel.menu", QtInfoMsg)

const QLoggingCategory& categoryOf(LogArea area) {
  switch (area) {
  case LogArea::menu:
    return menuLog();
  }
  return menuLog();
}
} // namespace

// Line feeds inside an entry are indented, so that no part of it passes for an entry of its own.
void LinuxSystemLog::write(const std::string& line) {
  std::string entry = "tavrel: ";
  for (char c : line)
    c == '\n' ? entry.append("\n  ") : entry.append(1, c);
  entry += '\n';
  std::fputs(entry.c_str(), stderr);
}

bool LinuxSystemLog::isDebugOn(LogArea area) {
  return categoryOf(area).isDebugEnabled();
}

void LinuxSystemLog::debug(LogArea area, const std::string& line) {
  const QLoggingCategory& category = categoryOf(area);
  if (category.isDebugEnabled())
    QMessageLogger(nullptr, 0, nullptr, category.categoryName()).debug().noquote()
        << QString::fromStdString(line);
}

} // namespace tavrel
