#pragma once

#include "contract/linux/x11/clipboard/SelectionClient.h"
#include "platform/linux/x11/clipboard/LinuxPasteboards.h"
#include "support/WaitFor.h"

#include <QProcess>
#include <gmock/gmock.h>

namespace tavrel {

/// The clipboard as a capture uses it: saved to a pasteboard of our own, cleared, read, restored.
class ClipboardFixture : public ::testing::Test {
protected:
  static void clear(Pasteboard& board) {
    board.declareTypes({pasteboardType::string});
    board.setString("", pasteboardType::string);
  }
  static void copy(Pasteboard& from, Pasteboard& to) {
    const auto types = from.types();
    clear(to);
    to.declareTypes(types);
    for (const std::string& type : types)
      if (auto data = from.data(type))
        to.setData(*std::move(data), type);
  }
  void save() {
    copy(general, backup);
    clear(general);
  }
  void capture() { copy(general, captured); }
  void restore() { copy(backup, general); }
  void captureNothing() {
    save();
    capture();
    restore();
  }
  /// Until a copy of another program has been noticed.
  template <typename Copy> void afterCopy(Copy copyNow) {
    const auto before = general.changeCount();
    copyNow();
    ASSERT_TRUE(waitFor([&] { return general.changeCount() > before; }));
  }
  static std::chrono::milliseconds timeOf(const std::function<void()>& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 start);
  }
  static std::string output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished(10000) ? process.readAllStandardOutput().toStdString()
                                          : "no answer";
  }

  std::unique_ptr<LinuxPasteboards> pasteboards = std::make_unique<LinuxPasteboards>();
  Pasteboard& general = pasteboards->general();
  Pasteboard& backup = pasteboards->named("backup");
  Pasteboard& captured = pasteboards->named("captured");
  SelectionPaster paster;
};

} // namespace tavrel
