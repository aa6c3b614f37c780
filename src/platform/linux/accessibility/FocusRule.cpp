#include "platform/linux/accessibility/FocusRule.h"

#include <QDBusArgument>
#include <QDBusMetaType>

namespace tavrel {

namespace {
constexpr int matchAll = 1;         // ATSPI_Collection_MATCH_ALL
constexpr int focusedBit = 1 << 12; // ATSPI_STATE_FOCUSED
} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const AccessibleRule& rule) {
  argument.beginStructure();
  argument << rule.states << rule.stateMatch << rule.attributes << rule.attributeMatch << rule.roles
           << rule.roleMatch << rule.interfaces << rule.interfaceMatch << rule.isInverted;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, AccessibleRule& rule) {
  argument.beginStructure();
  argument >> rule.states >> rule.stateMatch >> rule.attributes >> rule.attributeMatch >>
      rule.roles >> rule.roleMatch >> rule.interfaces >> rule.interfaceMatch >> rule.isInverted;
  argument.endStructure();
  return argument;
}

AccessibleRule focusRule() {
  qDBusRegisterMetaType<QMap<QString, QString>>();
  qDBusRegisterMetaType<AccessibleRule>();
  AccessibleRule rule;
  rule.states = {focusedBit, 0};
  rule.stateMatch = matchAll;
  rule.attributeMatch = matchAll;
  rule.roles = {0, 0, 0, 0};
  rule.roleMatch = matchAll;
  rule.interfaceMatch = matchAll;
  return rule;
}

} // namespace tavrel
