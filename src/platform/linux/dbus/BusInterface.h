#pragma once

#include <QDBusError>
#include <QString>
#include <QVariantList>

#include <functional>
#include <variant>
#include <vector>

namespace tavrel {

/// The error that a request on the bus is answered with.
struct BusError {
  QDBusError::ErrorType type = QDBusError::Failed;
  QString message;
};

/// The values of an answer, or an error.
using BusAnswer = std::variant<QVariantList, BusError>;

/// A method, called only with arguments of its signature.
struct BusMethod {
  QString name;
  QString signature;
  std::function<BusAnswer(const QVariantList& arguments)> call;
};

/// A read-only property: its answer is one value, a QDBusVariant for a property of type v.
struct BusProperty {
  QString name;
  std::function<BusAnswer()> read;
};

/// A D-Bus interface of an object of ours.
struct BusInterface {
  QString name;
  QString description; ///< methods and properties in the XML of introspection
  std::vector<BusMethod> methods;
  std::vector<BusProperty> properties;
};

} // namespace tavrel
