#pragma once

#include <QList>
#include <QMap>
#include <QMetaType>
#include <QString>
#include <QStringList>

class QDBusArgument;

namespace tavrel {

/// A rule of the interface org.a11y.atspi.Collection (AT-SPI 2), which selects elements by their
/// states, attributes, roles and interfaces.
struct AccessibleRule {
  QList<int> states;
  int stateMatch = 0;
  QMap<QString, QString> attributes;
  int attributeMatch = 0;
  QList<int> roles;
  int roleMatch = 0;
  QStringList interfaces;
  int interfaceMatch = 0;
  bool isInverted = false;
};

QDBusArgument& operator<<(QDBusArgument& argument, const AccessibleRule& rule);
const QDBusArgument& operator>>(const QDBusArgument& argument, AccessibleRule& rule);

/// All elements that have the keyboard.
[[nodiscard]] AccessibleRule focusRule();

} // namespace tavrel

Q_DECLARE_METATYPE(tavrel::AccessibleRule)
