#pragma once

#include <QDBusError>
#include <QString>
#include <QVariantList>

#include <functional>
#include <variant>
#include <vector>

namespace tavrel {

/// Why a request on the bus got nothing.
struct BusError {
  QDBusError::ErrorType type = QDBusError::Failed;
  QString message;
};

/// The values of an answer, or an error.
using BusAnswer = std::variant<QVariantList, BusError>;

/// A method: called with arguments of just that signature.
struct BusMethod {
  QString name;
  QString signature;
  std::function<BusAnswer(const QVariantList& arguments)> call;
};

/// A property that can be read: its answer is one value, a QDBusVariant for a property of type v.
struct BusProperty {
  QString name;
  std::function<BusAnswer()> read;
};

/// What others can ask under one name.
struct BusInterface {
  QString name;
  QString description; ///< methods and properties in the XML of introspection
  std::vector<BusMethod> methods;
  std::vector<BusProperty> properties;
};

} // namespace tavrel
