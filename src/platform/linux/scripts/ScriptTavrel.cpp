#include "platform/linux/scripts/ScriptApplications.h"

#include "platform/ScriptableApplication.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "script/ScriptError.h"

namespace tavrel {

using namespace script;

namespace {

using OwnCommand = HostAnswer (*)(ScriptableApplication& application, const HostEvent& event);
using OwnCommands = std::map<std::string, OwnCommand, std::less<>>;

HostAnswer copySelection(ScriptableApplication& application, const HostEvent&) {
  application.handleCopyToClipboardScriptCommand();
  return HostValue{};
}

// Constants come in lower case, for the language ignores case; texts may be in capitals.
std::optional<std::uint32_t> lineEndingsCode(const HostEvent& event) {
  const std::string endings = textParameter(event, "target line endings");
  if (endings == "cr" || endings == "CR")
    return scriptLineEndings::carriageReturn;
  if (endings == "crlf" || endings == "CRLF")
    return scriptLineEndings::carriageReturnLineFeed;
  return std::nullopt;
}

// All bytes of converted data are ASCII. Data otherwise is an image, for which scripts have no
// value.
HostAnswer convertedText(const PropertyList& value) {
  if (const std::string* text = value.string())
    return HostValue{*text};
  const Bytes* data = value.data();
  return HostValue{data ? std::string(data->begin(), data->end()) : std::string()};
}

HostAnswer uninstallSelf(ScriptableApplication& application, const HostEvent&) {
  application.handleUninstallScriptCommand();
  return HostValue{};
}

HostAnswer contextObject(ScriptableApplication& application) {
  const auto value = application.contextObject();
  if (!value)
    return HostValue{};
  if (const std::string* text = value->string())
    return HostValue{*text};
  const PropertyList::Array* array = value->array();
  if (!array)
    return HostError{errors::cannotCoerce, "The selection is an image, which no script can take."};
  HostList texts;
  for (const PropertyList& each : *array)
    if (const std::string* text = each.string())
      texts.push_back({*text});
  return HostValue{texts};
}

HostError notOwn(const std::string& what) {
  return {errors::noSuchObject, "Can’t get " + what + " of application \"Tavrel\"."};
}

HostAnswer ownProperty(ScriptableApplication& application, const std::string& name) {
  if (name == "context object")
    return contextObject(application);
  if (name == "host application name")
    return HostValue{application.hostAppName().value_or("")};
  if (name == "current localization")
    return HostValue{application.currentLocalization()};
  if (name == "long version")
    return HostValue{application.longVersion().value_or("")};
  if (name == "name")
    return HostValue{std::string("Tavrel")};
  return name == "running" ? HostAnswer(HostValue{true}) : notOwn(name);
}

// A property, or an item of one that is a list.
HostAnswer getOwn(ScriptableApplication& application, const HostEvent& event) {
  const auto* object = event.direct ? std::get_if<ObjectPath>(&event.direct->value) : nullptr;
  const bool isProperty = object && !object->steps.empty() && object->steps.size() <= 2 &&
                          object->steps[0].kind == ObjectStep::Kind::property;
  if (!isProperty)
    return notOwn("that");
  HostAnswer answer = ownProperty(application, object->steps[0].name);
  const auto* value = std::get_if<HostValue>(&answer);
  if (!value || object->steps.size() == 1)
    return answer;
  const auto* list = std::get_if<HostList>(&value->value);
  const auto element = list ? listElement(*list, object->steps[1]) : std::nullopt;
  return element ? HostAnswer(*element) : notOwn("that");
}

// The text may be named by what holds it, as `context object`.
std::optional<std::string> sourceText(ScriptableApplication& application, const HostEvent& event) {
  const bool isObject = event.direct && std::holds_alternative<ObjectPath>(event.direct->value);
  const HostAnswer held =
      isObject ? getOwn(application, event) : HostAnswer(event.direct.value_or(HostValue{}));
  const auto* value = std::get_if<HostValue>(&held);
  return value ? scriptText(*value) : std::nullopt;
}

HostAnswer convertText(ScriptableApplication& application, const HostEvent& event) {
  const auto source = sourceText(application, event);
  if (!source)
    return HostError{errors::missingParameter, "There is no text to convert."};
  ScriptArguments arguments{{"sourceString", *source},
                            {"targetEncoding", textParameter(event, "target encoding")},
                            {"rawData", flagParameter(event, "raw data", false)}};
  if (const auto code = lineEndingsCode(event))
    arguments.emplace("targetLineEndings", std::int64_t{*code});
  return convertedText(application.handleConvertScriptCommand(arguments));
}

HostAnswer countOwn(ScriptableApplication& application, const HostEvent& event) {
  const HostAnswer answer = getOwn(application, event);
  const auto* value = std::get_if<HostValue>(&answer);
  const auto* list = value ? std::get_if<HostList>(&value->value) : nullptr;
  return list ? HostAnswer(HostValue{static_cast<std::int64_t>(list->size())})
              : notOwn("the count of that");
}

HostAnswer existsOwn(ScriptableApplication& application, const HostEvent& event) {
  if (!event.direct)
    return HostValue{true};
  return HostValue{std::holds_alternative<HostValue>(getOwn(application, event))};
}

HostAnswer doNothing(ScriptableApplication&, const HostEvent&) {
  return HostValue{};
}

const OwnCommands& ownCommands() {
  static const OwnCommands all{{"copy to clipboard", copySelection},
                               {"convert", convertText},
                               {"uninstall", uninstallSelf},
                               {"get", getOwn},
                               {"count", countOwn},
                               {"exists", existsOwn},
                               {"activate", doNothing},
                               {"launch", doNothing},
                               {"run", doNothing}};
  return all;
}

} // namespace

HostAnswer askTavrel(ScriptDesktop& desktop, const HostEvent& event) {
  ScriptableApplication* application = desktop.application ? desktop.application() : nullptr;
  if (application == nullptr)
    return HostError{errors::notRunning, "Application \"Tavrel\" isn’t running."};
  const auto command = ownCommands().find(event.command);
  if (command != ownCommands().end())
    return command->second(*application, event);
  return HostError{errors::notUnderstood, "application \"Tavrel\" doesn’t understand the “" +
                                              event.command + "” message."};
}

} // namespace tavrel
