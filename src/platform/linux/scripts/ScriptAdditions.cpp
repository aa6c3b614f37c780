#include "platform/linux/scripts/ScriptAdditions.h"

#include "platform/linux/processes/ProcessStart.h"
#include "platform/linux/processes/ProgramSearch.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "platform/linux/scripts/ScriptDialogs.h"
#include "script/ScriptError.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDateTime>
#include <QStandardPaths>
#include <QUrl>

#include <array>

namespace tavrel {

using namespace script;

namespace {

HostAnswer clipboard(ScriptDesktop& desktop, const HostEvent&) {
  return HostValue{
      desktop.pasteboards.general().string(pasteboardType::string).value_or(std::string())};
}

// An empty text clears the clipboard, for reading an empty clipboard gives an empty text, too.
HostAnswer setClipboard(ScriptDesktop& desktop, const HostEvent& event) {
  Pasteboard& general = desktop.pasteboards.general();
  const std::string text = directText(event);
  if (text.empty())
    general.declareTypes({});
  else
    general.declareTypes({pasteboardType::string});
  general.setString(text, pasteboardType::string);
  return HostValue{};
}

HostAnswer beep(ScriptDesktop& desktop, const HostEvent&) {
  desktop.sounds.beep();
  return HostValue{};
}

HostAnswer log(ScriptDesktop& desktop, const HostEvent& event) {
  desktop.log.write(directText(event));
  return HostValue{};
}

HostAnswer openLocation(ScriptDesktop& desktop, const HostEvent& event) {
  if (desktop.workspace.openUrl(directText(event)))
    return HostValue{};
  return HostError{errors::general, "Nothing can open “" + directText(event) + "”."};
}

// espeak-ng may be installed as espeak; spd-say needs speech-dispatcher.
HostAnswer say(ScriptDesktop&, const HostEvent& event) {
  for (const char* name : {"espeak-ng", "espeak", "spd-say"})
    if (const auto program = findProgram(name)) {
      const auto error = startDetachedProcess({*program, {name, "--", directText(event)}, {}, {}});
      return error ? HostAnswer(HostError{errors::general, error.message()})
                   : HostAnswer(HostValue{});
    }
  return HostError{errors::fileNotFound, "No speech synthesizer is installed."};
}

HostAnswer timeToGmt(ScriptDesktop&, const HostEvent&) {
  return HostValue{static_cast<std::int64_t>(QDateTime::currentDateTime().offsetFromUtc())};
}

HostAnswer systemAttribute(ScriptDesktop&, const HostEvent& event) {
  return HostValue{qEnvironmentVariable(directText(event).c_str()).toStdString()};
}

// A folder's path ends in a slash, so that scripts can join the name of a file to it.
HostAnswer pathTo(ScriptDesktop&, const HostEvent& event) {
  using enum QStandardPaths::StandardLocation;
  struct Named {
    const char* name;
    QStandardPaths::StandardLocation location;
  };
  static constexpr std::array<Named, 12> places{{{"desktop", DesktopLocation},
                                                 {"desktop folder", DesktopLocation},
                                                 {"documents folder", DocumentsLocation},
                                                 {"downloads folder", DownloadLocation},
                                                 {"home folder", HomeLocation},
                                                 {"temporary items", TempLocation},
                                                 {"pictures folder", PicturesLocation},
                                                 {"music folder", MusicLocation},
                                                 {"movies folder", MoviesLocation},
                                                 {"applications folder", ApplicationsLocation},
                                                 {"public folder", PublicShareLocation},
                                                 {"application support", GenericDataLocation}}};
  const std::string name = directText(event);
  for (const Named& each : places)
    if (name == each.name)
      return HostValue{
          HostFile{QStandardPaths::writableLocation(each.location).toStdString().append("/")}};
  if (name == "startup disk")
    return HostValue{HostFile{"/"}};
  return HostError{errors::fileNotFound, "There is no “" + name + "” here."};
}

} // namespace

HostAnswer displayNotification(ScriptDesktop&, const HostEvent& event) {
  QDBusMessage call = QDBusMessage::createMethodCall("org.freedesktop.Notifications",
                                                     "/org/freedesktop/Notifications",
                                                     "org.freedesktop.Notifications", "Notify");
  std::string body = textParameter(event, "subtitle");
  body.append(body.empty() ? "" : "\n").append(directText(event));
  const std::string title = textParameter(event, "with title");
  call << "Tavrel" << 0U << "" << QString::fromStdString(title.empty() ? "Tavrel" : title)
       << QString::fromStdString(body).toHtmlEscaped() << QStringList() << QVariantMap() << -1;
  (void)QDBusConnection::sessionBus().send(call);
  return HostValue{};
}

const ScriptCommands& additionCommands() {
  static const ScriptCommands all{{"the clipboard", clipboard},
                                  {"set the clipboard to", setClipboard},
                                  {"beep", beep},
                                  {"log", log},
                                  {"open location", openLocation},
                                  {"say", say},
                                  {"time to gmt", timeToGmt},
                                  {"system attribute", systemAttribute},
                                  {"path to", pathTo}};
  return all;
}

} // namespace tavrel
