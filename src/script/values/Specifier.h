#pragma once

#include "script/Host.h"
#include "script/values/Value.h"

namespace tavrel::script {

/// An application, or an object inside one that is only named, not fetched.
class Specifier final : public Object {
public:
  static constexpr ValueKind valueKind = ValueKind::specifier;
  explicit Specifier(ObjectPath way) : Object(valueKind), path(std::move(way)) {}
  const ObjectPath path;
};

} // namespace tavrel::script
