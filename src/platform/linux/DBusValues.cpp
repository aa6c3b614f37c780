#include "platform/linux/DBusValues.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace tavrel {

namespace {

constexpr int deepest = 32;

std::optional<PropertyList> converted(const QVariant& value, int depth);

std::optional<PropertyList> arrayFrom(const QVariantList& list, int depth) {
  PropertyList::Array elements;
  for (const QVariant& element : list) {
    auto part = converted(element, depth + 1);
    if (!part)
      return std::nullopt;
    elements.push_back(*std::move(part));
  }
  return elements;
}

std::optional<PropertyList> dictionaryFrom(const QVariantMap& map, int depth) {
  PropertyList::Dictionary entries;
  for (auto entry = map.begin(); entry != map.end(); ++entry) {
    auto part = converted(entry.value(), depth + 1);
    if (!part)
      return std::nullopt;
    entries.insert_or_assign(entry.key().toStdString(), *std::move(part));
  }
  return entries;
}

// What Qt leaves packed is taken apart by its signature.
std::optional<PropertyList> unpacked(const QDBusArgument& argument, int depth) {
  const QString signature = argument.currentSignature();
  if (signature == "a{sv}")
    return dictionaryFrom(qdbus_cast<QVariantMap>(argument), depth);
  if (signature == "av")
    return arrayFrom(qdbus_cast<QVariantList>(argument), depth);
  if (signature.startsWith("a") && signature.size() == 2) {
    QVariantList elements;
    argument.beginArray();
    while (!argument.atEnd())
      elements.append(argument.asVariant());
    argument.endArray();
    return arrayFrom(elements, depth);
  }
  return std::nullopt;
}

std::optional<PropertyList> converted(const QVariant& value, int depth) {
  if (depth > deepest)
    return std::nullopt;
  if (value.metaType() == QMetaType::fromType<QDBusVariant>())
    return converted(value.value<QDBusVariant>().variant(), depth + 1);
  if (value.metaType() == QMetaType::fromType<QDBusArgument>())
    return unpacked(value.value<QDBusArgument>(), depth);
  switch (value.typeId()) {
  case QMetaType::Bool:
    return value.toBool();
  case QMetaType::UChar:
  case QMetaType::Short:
  case QMetaType::UShort:
  case QMetaType::Int:
  case QMetaType::UInt:
  case QMetaType::LongLong:
  case QMetaType::ULongLong:
    return static_cast<std::int64_t>(value.toLongLong());
  case QMetaType::Double:
    return value.toDouble();
  case QMetaType::QString:
    return value.toString().toStdString();
  case QMetaType::QByteArray: {
    const QByteArray bytes = value.toByteArray();
    return Bytes(bytes.begin(), bytes.end());
  }
  case QMetaType::QStringList:
  case QMetaType::QVariantList:
    return arrayFrom(value.toList(), depth);
  case QMetaType::QVariantMap:
    return dictionaryFrom(value.toMap(), depth);
  default:
    return std::nullopt;
  }
}

} // namespace

std::optional<PropertyList> propertyListFromDBus(const QVariant& value) {
  return converted(value, 0);
}

QVariant dbusFromPropertyList(const PropertyList& value) {
  switch (value.kind()) {
  case PropertyList::Kind::boolean:
    return *value.boolean();
  case PropertyList::Kind::integer:
    return static_cast<qlonglong>(*value.integer());
  case PropertyList::Kind::real:
    return *value.real();
  case PropertyList::Kind::date:
    return value.date()->seconds;
  case PropertyList::Kind::string:
    return QString::fromStdString(*value.string());
  case PropertyList::Kind::data:
    return QByteArray(reinterpret_cast<const char*>(value.data()->data()),
                      static_cast<qsizetype>(value.data()->size()));
  case PropertyList::Kind::array: {
    QVariantList list;
    for (const PropertyList& element : *value.array())
      list.append(dbusFromPropertyList(element));
    return list;
  }
  case PropertyList::Kind::dictionary: {
    QVariantMap map;
    for (const auto& [key, entry] : *value.dictionary())
      map.insert(QString::fromStdString(key), dbusFromPropertyList(entry));
    return map;
  }
  }
  return {};
}

} // namespace tavrel
