#include "platform/linux/scripts/ScriptDialogs.h"

#include "platform/linux/scripts/ScriptArguments.h"
#include "script/ScriptError.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace tavrel {

using namespace script;

namespace {

HostError canceled() {
  return {errors::userCanceled, "User canceled."};
}

constexpr int usualWidth = 380; // pixels
constexpr int stopPollMsecs = 100;

QString shownText(const std::string& text) {
  return QString::fromStdString(text);
}

QString titleOf(const HostEvent& event) {
  const std::string title = textParameter(event, "with title");
  return title.empty() ? QString("Tavrel") : shownText(title);
}

// The index of a button that is given by its title or by its number, counted from 1; -1 for none.
int buttonAt(const HostEvent& event, const char* label, const std::vector<std::string>& titles) {
  const HostValue* value = parameterOf(event, label);
  if (!value)
    return -1;
  if (const auto number = scriptNumber(*value))
    return *number >= 1 && *number <= static_cast<double>(titles.size())
               ? static_cast<int>(*number) - 1
               : -1;
  const auto found = std::find(titles.begin(), titles.end(), scriptText(*value).value_or(""));
  return found != titles.end() ? static_cast<int>(found - titles.begin()) : -1;
}

/// A dialog with a text, up to three buttons and perhaps an input field.
class QuestionDialog {
public:
  QuestionDialog(const HostEvent& event, std::vector<std::string> titles)
      : titles_(std::move(titles)), layout_(&dialog_) {
    dialog_.setWindowTitle(titleOf(event));
    dialog_.setWindowFlag(Qt::WindowStaysOnTopHint);
    dialog_.setMinimumWidth(usualWidth);
    addText(directText(event));
    const std::string message = textParameter(event, "message");
    if (!message.empty())
      addText(message);
    addInputField(event);
    addButtons(event);
    giveUpAfter(event);
  }

  HostAnswer ask() {
    dialog_.exec();
    if (chosen_ < 0 && !gaveUp_)
      return canceled();
    HostRecord record{{"button returned", {chosen_ < 0 ? std::string() : titles_[index()]}}};
    if (inputField_)
      record["text returned"] = {inputField_->text().toStdString()};
    if (timer_.isActive() || gaveUp_)
      record["gave up"] = {gaveUp_};
    const bool cancels = chosen_ >= 0 && chosen_ == cancel_;
    return cancels ? HostAnswer(canceled()) : HostAnswer(HostValue{record});
  }

private:
  [[nodiscard]] std::size_t index() const { return static_cast<std::size_t>(chosen_); }

  void addText(const std::string& text) {
    auto* label = new QLabel(shownText(text), &dialog_);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout_.addWidget(label);
  }

  void addInputField(const HostEvent& event) {
    const HostValue* answer = parameterOf(event, "default answer");
    if (!answer)
      return;
    inputField_ = new QLineEdit(shownText(scriptText(*answer).value_or("")), &dialog_);
    if (flagParameter(event, "hidden answer", false))
      inputField_->setEchoMode(QLineEdit::Password);
    layout_.addWidget(inputField_);
  }

  void addButtons(const HostEvent& event) {
    auto* box = new QDialogButtonBox(&dialog_);
    const int given = buttonAt(event, "default button", titles_);
    const int preferred = given >= 0 ? given : static_cast<int>(titles_.size()) - 1;
    cancel_ = buttonAt(event, "cancel button", titles_);
    for (std::size_t i = 0; i < titles_.size(); ++i) {
      const bool isCancel = cancel_ < 0 && titles_[i] == "Cancel";
      cancel_ = isCancel ? static_cast<int>(i) : cancel_;
      auto* button = box->addButton(shownText(titles_[i]), QDialogButtonBox::ActionRole);
      button->setAutoDefault(false);
      button->setDefault(static_cast<int>(i) == preferred);
      QObject::connect(button, &QPushButton::clicked, &dialog_, [this, i] {
        chosen_ = static_cast<int>(i);
        dialog_.accept();
      });
    }
    layout_.addWidget(box);
  }

  void giveUpAfter(const HostEvent& event) {
    const HostValue* seconds = parameterOf(event, "giving up after");
    const double wait = seconds ? scriptNumber(*seconds).value_or(0) : 0;
    if (!(wait > 0))
      return;
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &dialog_, [this] {
      gaveUp_ = true;
      dialog_.reject();
    });
    timer_.start(static_cast<int>(std::min(wait, 1e6) * 1000));
  }

  std::vector<std::string> titles_;
  QDialog dialog_;
  QVBoxLayout layout_;
  QTimer timer_;
  QLineEdit* inputField_ = nullptr;
  int chosen_ = -1;
  int cancel_ = -1;
  bool gaveUp_ = false;
};

HostAnswer askQuestion(const HostEvent& event, std::vector<std::string> defaultTitles) {
  const HostValue* buttons = parameterOf(event, "buttons");
  std::vector<std::string> titles = buttons ? scriptTexts(*buttons) : std::move(defaultTitles);
  if (titles.empty() || titles.size() > 3)
    return HostError{errors::badIndex, "A dialog has one, two or three buttons."};
  return QuestionDialog(event, std::move(titles)).ask();
}

HostAnswer displayDialog(ScriptDesktop&, const HostEvent& event) {
  return askQuestion(event, {"Cancel", "OK"});
}

HostAnswer displayAlert(ScriptDesktop&, const HostEvent& event) {
  return askQuestion(event, {"OK"});
}

// The list of what was chosen; false when the user cancels, as scripts expect.
HostAnswer chooseFromList(ScriptDesktop&, const HostEvent& event) {
  QDialog dialog;
  QVBoxLayout layout(&dialog);
  dialog.setWindowTitle(titleOf(event));
  const std::string prompt = textParameter(event, "with prompt");
  layout.addWidget(new QLabel(shownText(prompt.empty() ? "Please make your selection:" : prompt)));
  auto* list = new QListWidget(&dialog);
  const bool several = flagParameter(event, "multiple selections allowed", false);
  list->setSelectionMode(several ? QAbstractItemView::ExtendedSelection
                                 : QAbstractItemView::SingleSelection);
  const HostValue* preselected = parameterOf(event, "default items");
  const std::vector<std::string> chosen =
      preselected ? scriptTexts(*preselected) : std::vector<std::string>();
  for (const std::string& each : event.direct ? scriptTexts(*event.direct) : chosen) {
    auto* item = new QListWidgetItem(shownText(each), list);
    item->setSelected(std::find(chosen.begin(), chosen.end(), each) != chosen.end());
  }
  layout.addWidget(list);
  auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  layout.addWidget(box);
  QObject::connect(box, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(box, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  HostList result;
  for (int row = 0; accepted && row < list->count(); ++row)
    if (list->item(row)->isSelected())
      result.push_back({list->item(row)->text().toStdString()});
  const bool mayBeEmpty = flagParameter(event, "empty selection allowed", false);
  return accepted && (mayBeEmpty || !result.empty()) ? HostValue{result} : HostValue{false};
}

HostAnswer chosenFiles(const QStringList& names, bool several) {
  if (names.isEmpty())
    return canceled();
  HostList files;
  for (const QString& each : names)
    files.push_back({HostFile{QFile::encodeName(each).toStdString()}});
  return several ? HostValue{files} : files.front();
}

QString startFolder(const HostEvent& event) {
  return shownText(textParameter(event, "default location"));
}

QString promptOf(const HostEvent& event) {
  return shownText(textParameter(event, "with prompt"));
}

HostAnswer chooseFile(ScriptDesktop&, const HostEvent& event) {
  const bool several = flagParameter(event, "multiple selections allowed", false);
  if (several)
    return chosenFiles(QFileDialog::getOpenFileNames(nullptr, promptOf(event), startFolder(event)),
                       true);
  const QString name = QFileDialog::getOpenFileName(nullptr, promptOf(event), startFolder(event));
  return chosenFiles(name.isEmpty() ? QStringList() : QStringList(name), false);
}

HostAnswer chooseFolder(ScriptDesktop&, const HostEvent& event) {
  const QString name =
      QFileDialog::getExistingDirectory(nullptr, promptOf(event), startFolder(event));
  return chosenFiles(name.isEmpty() ? QStringList() : QStringList(name + "/"), false);
}

HostAnswer chooseFileName(ScriptDesktop&, const HostEvent& event) {
  const QString start = startFolder(event) + "/" + shownText(textParameter(event, "default name"));
  const QString name = QFileDialog::getSaveFileName(nullptr, promptOf(event), start);
  return chosenFiles(name.isEmpty() ? QStringList() : QStringList(name), false);
}

} // namespace

DialogCanceller::DialogCanceller(std::function<bool()> shouldStop) {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [stops = std::move(shouldStop)] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog != nullptr && stops())
      dialog->reject();
  });
  timer_.start(stopPollMsecs);
}

const ScriptCommands& dialogCommands() {
  static const ScriptCommands all{{"display dialog", displayDialog},
                                  {"display alert", displayAlert},
                                  {"choose from list", chooseFromList},
                                  {"choose file", chooseFile},
                                  {"choose folder", chooseFolder},
                                  {"choose file name", chooseFileName},
                                  {"display notification", displayNotification}};
  return all;
}

} // namespace tavrel
