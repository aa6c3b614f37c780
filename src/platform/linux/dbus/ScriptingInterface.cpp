#include "platform/linux/dbus/ScriptingInterface.h"

#include "platform/ScriptableApplication.h"

#include <QDBusVariant>

#include <optional>

namespace tavrel {

namespace {

// D-Bus allows arrays of 64 MiB at most; who sends a longer one is disconnected.
constexpr std::size_t longestBusValue = std::size_t{48} << 20;

const QString scriptingDescription = QStringLiteral(R"(    <method name="CopyToClipboard"/>
    <method name="Convert">
      <arg type="s" name="sourceString" direction="in"/>
      <arg type="s" name="targetEncoding" direction="in"/>
      <arg type="b" name="rawData" direction="in"/>
      <arg type="s" name="targetLineEndings" direction="in"/>
      <arg type="v" name="converted" direction="out"/>
    </method>
    <method name="Uninstall"/>
    <property type="s" name="hostAppName" access="read"/>
    <property type="s" name="currentLocalization" access="read"/>
    <property type="s" name="longVersion" access="read"/>
    <property type="v" name="contextObject" access="read"/>
    <annotation name="org.freedesktop.DBus.Property.EmitsChangedSignal" value="false"/>
)");

// D-Bus allows no NUL in a text.
QString busText(const std::string& text) {
  return QString::fromStdString(text).replace(QChar::Null, QChar::ReplacementCharacter);
}

QStringList busTexts(const PropertyList::Array& array) {
  QStringList texts;
  for (const PropertyList& each : array)
    if (const std::string* text = each.string())
      texts << busText(*text);
  return texts;
}

std::size_t busSize(const PropertyList& value) {
  constexpr std::size_t overhead = 16;
  std::size_t size = overhead;
  if (const std::string* text = value.string())
    size += text->size();
  if (const Bytes* data = value.data())
    size += data->size();
  if (const PropertyList::Array* array = value.array())
    for (const PropertyList& each : *array)
      size += busSize(each);
  return size;
}

QVariant busValue(const PropertyList& value) {
  if (const PropertyList::Array* array = value.array())
    return busTexts(*array);
  if (const Bytes* data = value.data())
    return QByteArray(reinterpret_cast<const char*>(data->data()),
                      static_cast<qsizetype>(data->size()));
  const std::string* text = value.string();
  return text ? busText(*text) : QString();
}

BusAnswer answered(const PropertyList& value) {
  if (busSize(value) > longestBusValue)
    return BusError{QDBusError::LimitsExceeded,
                    QStringLiteral("This is longer than a message can be")};
  return QVariantList{QVariant::fromValue(QDBusVariant(busValue(value)))};
}

BusAnswer answeredText(const std::optional<std::string>& text) {
  if (text && text->size() > longestBusValue)
    return BusError{QDBusError::LimitsExceeded,
                    QStringLiteral("This is longer than a message can be")};
  return QVariantList{text ? busText(*text) : QString(QLatin1String(""))};
}

ScriptArguments convertArguments(const QVariantList& values) {
  ScriptArguments arguments{{"sourceString", values[0].toString().toStdString()},
                            {"targetEncoding", values[1].toString().toStdString()},
                            {"rawData", values[2].toBool()}};
  const QString endings = values[3].toString();
  if (endings == QLatin1String("CR"))
    arguments.emplace("targetLineEndings", std::int64_t{scriptLineEndings::carriageReturn});
  if (endings == QLatin1String("CRLF"))
    arguments.emplace("targetLineEndings", std::int64_t{scriptLineEndings::carriageReturnLineFeed});
  return arguments;
}

std::vector<BusMethod> scriptingMethods(ScriptableApplication& application,
                                        std::function<void()> uninstall) {
  const auto copy = [&application](const QVariantList&) -> BusAnswer {
    application.handleCopyToClipboardScriptCommand();
    return QVariantList();
  };
  const auto convert = [&application](const QVariantList& values) {
    return answered(application.handleConvertScriptCommand(convertArguments(values)));
  };
  const auto remove = [uninstall = std::move(uninstall)](const QVariantList&) -> BusAnswer {
    uninstall();
    return QVariantList();
  };
  return {{QStringLiteral("CopyToClipboard"), QString(QLatin1String("")), copy},
          {QStringLiteral("Convert"), QStringLiteral("ssbs"), convert},
          {QStringLiteral("Uninstall"), QString(QLatin1String("")), remove}};
}

std::vector<BusProperty> scriptingProperties(ScriptableApplication& application) {
  return {{QStringLiteral("hostAppName"),
           [&application] { return answeredText(application.hostAppName()); }},
          {QStringLiteral("currentLocalization"),
           [&application] { return answeredText(application.currentLocalization()); }},
          {QStringLiteral("longVersion"),
           [&application] { return answeredText(application.longVersion()); }},
          {QStringLiteral("contextObject"), [&application] {
             return answered(application.contextObject().value_or(PropertyList("")));
           }}};
}

} // namespace

BusInterface scriptingInterface(ScriptableApplication& application,
                                std::function<void()> uninstall) {
  return {QString::fromLatin1(scriptingInterfaceName), scriptingDescription,
          scriptingMethods(application, std::move(uninstall)), scriptingProperties(application)};
}

} // namespace tavrel
