#include "platform/linux/x11/clipboard/ClipboardReading.h"

#include "platform/linux/x11/clipboard/ClipboardFlavors.h"
#include "platform/linux/x11/clipboard/SelectionTarget.h"

#include <algorithm>
#include <cstring>

namespace tavrel {

Q_LOGGING_CATEGORY(clipboardLog, "tavrel.clipboard")

namespace {

constexpr auto totalTimeout = std::chrono::seconds(2);
constexpr std::size_t byteLimit = std::size_t{256} << 20;
constexpr std::size_t targetLimit = 4096;

// To be asked for a link changes the document: LibreOffice 7.4 puts a bookmark into it.
bool isLink(const std::string& target) {
  return target == "LINK" || target == "OBJECTLINK" ||
         target.starts_with("application/x-openoffice-link");
}

bool holdsData(const std::string& target) {
  static const std::vector<std::string> others{"TARGETS",      "MULTIPLE", "TIMESTAMP",
                                               "SAVE_TARGETS", "DELETE",   ""};
  return !target.starts_with("INSERT_") && !isLink(target) &&
         std::find(others.begin(), others.end(), target) == others.end();
}

std::vector<xcb_atom_t> atomsIn(const TargetReading& list) {
  if (list.format != 32)
    return {};
  std::vector<xcb_atom_t> atoms(std::min(list.bytes.size() / sizeof(xcb_atom_t), targetLimit));
  std::memcpy(atoms.data(), list.bytes.data(), atoms.size() * sizeof(xcb_atom_t));
  return atoms;
}

void logFailure(TransferEnd end, const std::string& target) {
  if (end == TransferEnd::timedOut)
    qCWarning(clipboardLog, "the program that owns the clipboard does not hand over %s in time",
              target.c_str());
  if (end == TransferEnd::tooMuch)
    qCWarning(clipboardLog, "the clipboard holds more than %zu MB: %s is not saved",
              byteLimit >> 20, target.c_str());
}

class Reading {
public:
  Reading(SelectionConnection& connection, SelectionReader& reader)
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
      return {"UTF8_STRING", "STRING"}; // a program older than TARGETS
    std::vector<std::string> targets = connection_.names(atomsIn(list));
    std::erase_if(targets, [](const std::string& target) { return !holdsData(target); });
    return targets;
  }

  TargetReading read(const std::string& target) {
    if (isStopped_)
      return {};
    TargetReading reading = reader_.read(connection_.atom(target), budget_);
    isStopped_ = reading.end == TransferEnd::timedOut || reading.end == TransferEnd::interrupted;
    reading_.isInterrupted = reading.end == TransferEnd::interrupted;
    logFailure(reading.end, target);
    if (reading.end != TransferEnd::done && reading.end != TransferEnd::refused)
      reading_.isComplete = false;
    return reading;
  }

  void add(const std::string& target) {
    TargetReading reading = read(target);
    SelectionTarget offered{target, target, 8, false};
    if (reading.end == TransferEnd::done) {
      offered.type = connection_.names({reading.type}).front();
      offered.format = reading.format;
    }
    offered.unread = reading.end != TransferEnd::done && reading.end != TransferEnd::refused;
    const std::string name = pasteboardName(offered);
    if (reading_.contents.offers(name))
      return;
    reading_.contents.names.push_back(name);
    if (reading.end == TransferEnd::done)
      reading_.contents.data.emplace(name, sharedBytes(std::move(reading.bytes)));
  }

  SelectionConnection& connection_;
  SelectionReader& reader_;
  ReadBudget budget_{std::chrono::steady_clock::now() + totalTimeout, byteLimit};
  bool isStopped_ = false;
  ClipboardReading reading_{{}, true, false};
};

} // namespace

ClipboardReading readClipboard(SelectionConnection& connection, SelectionReader& reader) {
  return Reading(connection, reader).run();
}

} // namespace tavrel
