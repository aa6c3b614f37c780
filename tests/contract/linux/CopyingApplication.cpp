// An application for tests that copies as other programs do, the worst of them included:
//   contract_copying_application LOG [NAME=VALUE...]
//     selected=TEXT   what is selected; nothing without it
//     answer=NAME     what it does at Ctrl+Insert (or Ctrl+C):
//       once            copies over the connection of its window
//       elsewhere       copies over another connection
//       xclip           starts a program that copies
//       cleared         leaves the clipboard without an owner, and copies after the delay
//       often           copies ten times, with the delay in between
//       anew            copies once more as soon as it is asked for the text
//       hangs           handles nothing for the delay, then copies elsewhere
//       dies            ends without an answer
//       mixed           one of "once" to "often", by chance (the same each time), with a delay up
//       to
//                       the given one
//     delay=MS        before it copies
//     primary=TEXT    what it offers as the selection PRIMARY
//     paste=MS        how long after Shift+Insert it reads the clipboard; LOG gets "pasted TEXT"
// LOG gets a line for each key press that it handles, by Qt's name, and "ready" at first.
#include "contract/linux/x11/clipboard/SelectionClient.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QProcess>
#include <QTimer>
#include <QWidget>

#include <array>
#include <fstream>
#include <random>
#include <sys/prctl.h>

#include <csignal>

using namespace tavrel;

namespace {

using Settings = std::map<std::string, std::string>;

class Application final : public QWidget {
public:
  Application(std::string log, Settings settings)
      : log_(std::move(log)), settings_(std::move(settings)) {
    if (settings_.contains("primary"))
      QGuiApplication::clipboard()->setText(text("primary"), QClipboard::Selection);
  }
  void write(const std::string& line) const { std::ofstream(log_, std::ios::app) << line << '\n'; }

private:
  QString text(const char* name) { return QString::fromStdString(settings_[name]); }
  [[nodiscard]] int delay() { return delay_ >= 0 ? delay_ : text("delay").toInt(); }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() >= Qt::Key_Shift && event->key() <= Qt::Key_ScrollLock)
      return; // modifiers and locks
    write(QKeySequence(event->keyCombination()).toString().toStdString());
    if (event->matches(QKeySequence::Copy) && settings_.contains("selected"))
      answer();
    if (event->matches(QKeySequence::Paste) && settings_.contains("paste"))
      QTimer::singleShot(text("paste").toInt(), this, [this] {
        write("pasted " + QGuiApplication::clipboard()->text().toStdString());
      });
  }

  void answer() {
    const std::string how = settings_["answer"];
    if (how == "mixed")
      answerByChance();
    else
      answer(how);
  }
  void answerByChance() {
    static constexpr std::array<const char*, 5> ways{"once", "elsewhere", "cleared", "often",
                                                     "xclip"};
    // A program is started for one copy in a hundred: that takes longest.
    const std::size_t way = chance_() % 100 == 0 ? 4 : chance_() % 4;
    const auto longest = static_cast<unsigned>(text("delay").toInt());
    delay_ = chance_() % 10 == 0 ? static_cast<int>(chance_() % (longest + 1)) : 0;
    write(std::string(ways[way]) + " after " + std::to_string(delay_) + " ms");
    answer(ways[way]);
  }
  void answer(const std::string& how) {
    if (how == "once")
      later(delay(), [this] { copy(); });
    else if (how == "elsewhere")
      later(delay(), [this] { copyElsewhere(); });
    else if (how == "xclip")
      later(delay(), [this] { copyByProgram(); });
    else if (how == "cleared")
      clear(), later(delay(), [this] { copyElsewhere(); });
    else if (how == "often")
      for (int time = 0; time < 10; ++time)
        later(time * delay(), [this] { copyElsewhere(); });
    else if (how == "anew")
      copyAnew();
    else if (how == "hangs")
      std::this_thread::sleep_for(std::chrono::milliseconds(delay())), copyElsewhere();
    else if (how == "dies")
      std::_Exit(1);
  }
  void later(int milliseconds, const std::function<void()>& what) {
    milliseconds == 0 ? what() : QTimer::singleShot(milliseconds, this, what);
  }
  [[nodiscard]] std::vector<OwnedTarget> targets(Manner manner = Manner::atOnce) {
    return {plain("UTF8_STRING", settings_["selected"], manner)};
  }
  void copy() { QGuiApplication::clipboard()->setText(text("selected")); }
  void copyElsewhere() {
    if (owner_)
      owner_->copy(targets());
    else
      owner_ = std::make_unique<SelectionOwner>(targets());
  }
  void copyAnew() {
    owner_ = std::make_unique<SelectionOwner>(targets(Manner::copiesAgain));
    owner_->next = targets();
  }
  void copyByProgram() {
    QProcess xclip;
    xclip.setStandardOutputFile(QProcess::nullDevice()); // it stays open in a child of xclip
    xclip.setStandardErrorFile(QProcess::nullDevice());
    xclip.start(QStringLiteral("xclip"),
                {QStringLiteral("-selection"), QStringLiteral("clipboard")});
    xclip.write(settings_["selected"].c_str());
    xclip.closeWriteChannel();
    xclip.waitForFinished();
  }
  static void clear() {
    const SelectionClient client;
    xcb_set_selection_owner(client.server, XCB_WINDOW_NONE, client.atom("CLIPBOARD"),
                            XCB_CURRENT_TIME);
    client.sync();
  }

  std::string log_;
  Settings settings_;
  std::unique_ptr<SelectionOwner> owner_;
  std::mt19937 chance_;
  int delay_ = -1; ///< by chance; -1: as given
};

Settings settingsIn(const QStringList& arguments) {
  Settings settings{{"answer", "once"}};
  for (const QString& each : arguments)
    settings[each.section(QLatin1Char('='), 0, 0).toStdString()] =
        each.section(QLatin1Char('='), 1).toStdString();
  return settings;
}

} // namespace

int main(int argc, char** argv) {
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  const QApplication application(argc, argv);
  Application window(argv[1], settingsIn(QApplication::arguments().mid(2)));
  window.resize(300, 100);
  window.show();
  QTimer::singleShot(0, &window, [&] { window.write("ready"); });
  return QApplication::exec();
}
