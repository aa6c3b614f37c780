#include "platform/linux/dbus/DBusValues.h"

#include <QDBusArgument>
#include <QDBusVariant>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tavrel {

namespace {

constexpr int deepestValue = 32;

// A message holds 64 containers inside one another, and a dictionary takes three: the array, its
// entry, and the variant that holds the next one. A deeper message costs the sender its connection.
constexpr int deepestSentValue = 20;

bool isDeeperThan(const PropertyList& value, int levels) {
  if (levels < 0)
    return true;
  if (const PropertyList::Array* elements = value.array())
    return std::any_of(elements->begin(), elements->end(),
                       [&](const PropertyList& each) { return isDeeperThan(each, levels - 1); });
  if (const PropertyList::Dictionary* entries = value.dictionary())
    return std::any_of(entries->begin(), entries->end(),
                       [&](const auto& each) { return isDeeperThan(each.second, levels - 1); });
  return false;
}

std::optional<PropertyList> fromVariant(const QVariant& value, int depth, bool& isWhole);

std::optional<PropertyList> arrayFrom(const QVariantList& list, int depth, bool& isWhole) {
  PropertyList::Array elements;
  for (const QVariant& element : list)
    if (auto value = fromVariant(element, depth + 1, isWhole))
      elements.push_back(*std::move(value));
    else
      isWhole = false;
  return elements;
}

std::optional<PropertyList> dictionaryFrom(const QVariantMap& map, int depth, bool& isWhole) {
  PropertyList::Dictionary entries;
  for (auto entry = map.begin(); entry != map.end(); ++entry)
    if (auto value = fromVariant(entry.value(), depth + 1, isWhole))
      entries.insert_or_assign(entry.key().toStdString(), *std::move(value));
    else
      isWhole = false;
  return entries;
}

QVariantList elementsOf(const QDBusArgument& argument) {
  QVariantList elements;
  argument.beginArray();
  while (!argument.atEnd())
    elements.append(argument.asVariant());
  argument.endArray();
  return elements;
}

QVariantMap entriesOf(const QDBusArgument& argument) {
  QVariantMap entries;
  argument.beginMap();
  while (!argument.atEnd()) {
    argument.beginMapEntry();
    const QString key = argument.asVariant().toString();
    entries.insert(key, argument.asVariant());
    argument.endMapEntry();
  }
  argument.endMap();
  return entries;
}

// What Qt does not convert by itself: arrays, and dictionaries with string keys.
std::optional<PropertyList> fromArgument(const QDBusArgument& argument, int depth, bool& isWhole) {
  if (argument.currentType() == QDBusArgument::ArrayType)
    return arrayFrom(elementsOf(argument), depth, isWhole);
  if (argument.currentType() == QDBusArgument::MapType &&
      argument.currentSignature().startsWith(QLatin1String("a{s")))
    return dictionaryFrom(entriesOf(argument), depth, isWhole);
  return std::nullopt;
}

std::optional<PropertyList> integerFrom(quint64 value) {
  if (value > static_cast<quint64>(std::numeric_limits<std::int64_t>::max()))
    return std::nullopt;
  return static_cast<std::int64_t>(value);
}

std::optional<PropertyList> fromVariant(const QVariant& value, int depth, bool& isWhole) {
  if (depth > deepestValue)
    return std::nullopt;
  if (value.metaType() == QMetaType::fromType<QDBusVariant>())
    return fromVariant(value.value<QDBusVariant>().variant(), depth, isWhole);
  if (value.metaType() == QMetaType::fromType<QDBusArgument>())
    return fromArgument(value.value<QDBusArgument>(), depth, isWhole);
  switch (value.typeId()) {
  case QMetaType::Bool:
    return value.toBool();
  case QMetaType::UChar:
  case QMetaType::Short:
  case QMetaType::UShort:
  case QMetaType::Int:
  case QMetaType::UInt:
  case QMetaType::LongLong:
    return static_cast<std::int64_t>(value.toLongLong());
  case QMetaType::ULongLong:
    return integerFrom(value.toULongLong());
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
    return arrayFrom(value.toList(), depth, isWhole);
  case QMetaType::QVariantMap:
    return dictionaryFrom(value.toMap(), depth, isWhole);
  default:
    return std::nullopt;
  }
}

QVariant toVariant(const PropertyList& value) {
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
      list.append(toVariant(element));
    return list;
  }
  case PropertyList::Kind::dictionary: {
    QVariantMap map;
    for (const auto& [key, entry] : *value.dictionary())
      map.insert(QString::fromStdString(key), toVariant(entry));
    return map;
  }
  }
  return {};
}

} // namespace

DBusPropertyList propertyListFromDBus(const QVariant& value) {
  DBusPropertyList list;
  list.value = fromVariant(value, 0, list.isWhole);
  return list;
}

std::optional<QVariant> dbusFromPropertyList(const PropertyList& value) {
  if (isDeeperThan(value, deepestSentValue))
    return std::nullopt;
  return toVariant(value);
}

} // namespace tavrel
