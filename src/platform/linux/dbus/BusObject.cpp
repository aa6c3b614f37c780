#include "platform/linux/dbus/BusObject.h"

#include "platform/linux/dbus/BusName.h"

#include <QDBusConnection>
#include <QDBusVariant>

#include <algorithm>

namespace tavrel {

namespace {

const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

// A request may leave out the name of the interface; then any interface will do.
bool isMeant(const BusInterface& interface, const QString& name) {
  return name.isEmpty() || interface.name == name;
}

template <class Members> auto memberNamed(const Members& members, const QString& name) {
  return std::find_if(members.begin(), members.end(),
                      [&](const auto& each) { return each.name == name; });
}

bool isAnsweredByQt(const QDBusMessage& message) {
  return message.interface() == QLatin1String("org.freedesktop.DBus.Introspectable") ||
         message.interface() == QLatin1String("org.freedesktop.DBus.Peer");
}

BusAnswer inVariant(BusAnswer answer) {
  if (auto* values = std::get_if<QVariantList>(&answer))
    values->front() = QVariant::fromValue(QDBusVariant(values->front()));
  return answer;
}

QDBusMessage replyTo(const QDBusMessage& message, const BusAnswer& answer) {
  if (const auto* error = std::get_if<BusError>(&answer))
    return message.createErrorReply(error->type, error->message);
  return message.createReply(std::get<QVariantList>(answer));
}

} // namespace

BusObject::BusObject() {
  QDBusConnection::sessionBus().registerVirtualObject(QString::fromLatin1(busPath), this);
}

BusObject::~BusObject() {
  QDBusConnection::sessionBus().unregisterObject(QString::fromLatin1(busPath));
}

void BusObject::offer(BusInterface interface) {
  withdraw(interface.name);
  interfaces_.push_back(std::move(interface));
}

void BusObject::withdraw(const QString& name) {
  std::erase_if(interfaces_, [&](const BusInterface& each) { return each.name == name; });
}

QString BusObject::introspect(const QString&) const {
  QString description;
  for (const BusInterface& each : interfaces_)
    description += QStringLiteral("  <interface name=\"") + each.name + QStringLiteral("\">\n") +
                   each.description + QStringLiteral("  </interface>\n");
  return description;
}

bool BusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  if (message.type() != QDBusMessage::MethodCallMessage || isAnsweredByQt(message))
    return false;
  const bool isProperty = message.interface() == propertiesInterface;
  const BusAnswer answer = isProperty ? answerProperties(message) : callMethod(message);
  if (message.isReplyRequired())
    connection.send(replyTo(message, answer));
  return true;
}

// The method is copied: its interface may be withdrawn while it runs.
BusAnswer BusObject::callMethod(const QDBusMessage& message) const {
  for (const BusInterface& each : interfaces_) {
    const auto method = memberNamed(each.methods, message.member());
    if (!isMeant(each, message.interface()) || method == each.methods.end())
      continue;
    if (method->signature != message.signature())
      return BusError{QDBusError::InvalidArgs,
                      message.member() + QStringLiteral(" takes arguments of the signature \"") +
                          method->signature + QStringLiteral("\"")};
    const auto call = method->call;
    return call(message.arguments());
  }
  return BusError{QDBusError::UnknownMethod, QStringLiteral("There is no method ") +
                                                 message.member() + QStringLiteral(" here")};
}

BusAnswer BusObject::answerProperties(const QDBusMessage& message) const {
  const QVariantList arguments = message.arguments();
  if (message.member() == QLatin1String("GetAll") && message.signature() == QLatin1String("s"))
    return allProperties(arguments.front().toString());
  const bool isGet =
      message.member() == QLatin1String("Get") && message.signature() == QLatin1String("ss");
  for (const BusInterface& each : interfaces_) {
    const bool hasInterface = arguments.size() > 1 && isMeant(each, arguments.front().toString());
    const auto found = hasInterface ? memberNamed(each.properties, arguments[1].toString())
                                    : each.properties.end();
    if (found != each.properties.end())
      return isGet ? inVariant(found->read())
                   : BusError{QDBusError::PropertyReadOnly,
                              QStringLiteral("This property can only be read")};
  }
  return BusError{QDBusError::UnknownProperty, QStringLiteral("There is no such property here")};
}

// A property that cannot be read now is left out.
BusAnswer BusObject::allProperties(const QString& interface) const {
  if (std::ranges::none_of(interfaces_, [&](const auto& each) { return isMeant(each, interface); }))
    return BusError{QDBusError::UnknownInterface,
                    QStringLiteral("There is no such interface here")};
  QVariantMap all;
  for (const BusInterface& each : interfaces_)
    for (const BusProperty& property :
         isMeant(each, interface) ? each.properties : std::vector<BusProperty>()) {
      const BusAnswer answer = property.read();
      if (const auto* values = std::get_if<QVariantList>(&answer))
        all.insert(property.name, values->front());
    }
  return QVariantList{all};
}

} // namespace tavrel
