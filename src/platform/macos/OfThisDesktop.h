#pragma once

#include <type_traits>
#include <typeinfo>

namespace tavrel {

/// The object as the kind that the adapters here make of it; null for null and for an object of
/// another desktop. `Kind` is final.
template <class Kind, class Base> [[nodiscard]] const Kind* ofThisDesktop(const Base* object) {
  static_assert(std::is_final_v<Kind>);
  return object && typeid(*object) == typeid(Kind) ? static_cast<const Kind*>(object) : nullptr;
}

} // namespace tavrel
