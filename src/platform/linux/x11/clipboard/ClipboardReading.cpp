#include "platform/linux/x11/clipboard/ClipboardReading.h"

#include "platform/linux/x11/clipboard/ClipboardFlavors.h"
#include "platform/linux/x11/clipboard/ClipboardLog.h"
#include "platform/linux/x11/clipboard/NativeTarget.h"

#include <algorithm>
#include <cstring>

namespace tavrel {

namespace {

constexpr auto longestSave = std::chrono::seconds(2);
constexpr std::size_t mostSaved = std::size_t{256} << 20;
constexpr std::size_t mostTargets = 4096;

bool isContent(const std::string& target) {
  static const std::vector<std::string> others{"TARGETS",      "MULTIPLE", "TIMESTAMP",
                                               "SAVE_TARGETS", "DELETE",   ""};
  return !target.starts_with("INSERT_") &&
         std::find(others.begin(), others.end(), target) == others.end();
}

std::vector<xcb_atom_t> atomsIn(const TargetReading& list) {
  if (list.format != 32)
    return {};
  std::vector<xcb_atom_t> atoms(std::min(list.bytes.size() / sizeof(xcb_atom_t), mostTargets));
  std::memcpy(atoms.data(), list.bytes.data(), atoms.size() * sizeof(xcb_atom_t));
  return atoms;
}

void sayWhy(TransferEnd end, const std::string& target) {
  if (end == TransferEnd::silent)
    qCWarning(clipboardLog, "the program that owns the clipboard does not hand over %s in time",
              target.c_str());
  if (end == TransferEnd::tooMuch)
    qCWarning(clipboardLog, "the clipboard holds more than %zu MB: %s is not saved",
              mostSaved >> 20, target.c_str());
}

class Save {
public:
  Save(SelectionConnection& connection, SelectionReader& reader)
      : connection_(connection), reader_(reader) {}

  ClipboardReading run() {
    for (const std::string& target : targets())
      add(target);
    auto& names = reading_.contents.names;
    const auto flavors = flavorsOf(reading_.contents);
    names.insert(names.begin(), flavors.begin(), flavors.end());
    return std::move(reading_);
  }

private:
  std::vector<std::string> targets() {
    const TargetReading list = read("TARGETS");
    if (list.end == TransferEnd::refused)
      return {"UTF8_STRING", "STRING"}; // older than the list of targets
    std::vector<std::string> targets = connection_.names(atomsIn(list));
    std::erase_if(targets, [](const std::string& target) { return !isContent(target); });
    return targets;
  }

  TargetReading read(const std::string& target) {
    if (isOver_)
      return {};
    TargetReading transfer = reader_.read(connection_.atom(target), budget_);
    isOver_ = transfer.end == TransferEnd::silent || transfer.end == TransferEnd::interrupted;
    reading_.isInterrupted = transfer.end == TransferEnd::interrupted;
    sayWhy(transfer.end, target);
    if (transfer.end != TransferEnd::done && transfer.end != TransferEnd::refused)
      reading_.isComplete = false;
    return transfer;
  }

  void add(const std::string& target) {
    TargetReading transfer = read(target);
    NativeTarget native{target, target, 8, false};
    if (transfer.end == TransferEnd::done) {
      native.type = connection_.names({transfer.type}).front();
      native.format = transfer.format;
    }
    native.unread = transfer.end != TransferEnd::done && transfer.end != TransferEnd::refused;
    const std::string name = pasteboardName(native);
    if (reading_.contents.offers(name))
      return;
    reading_.contents.names.push_back(name);
    if (transfer.end == TransferEnd::done)
      reading_.contents.data.emplace(name, sharedBytes(std::move(transfer.bytes)));
  }

  SelectionConnection& connection_;
  SelectionReader& reader_;
  SaveBudget budget_{std::chrono::steady_clock::now() + longestSave, mostSaved};
  bool isOver_ = false;
  ClipboardReading reading_{{}, true, false};
};

} // namespace

ClipboardReading readClipboard(SelectionConnection& connection, SelectionReader& reader) {
  return Save(connection, reader).run();
}

} // namespace tavrel
