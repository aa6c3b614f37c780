#pragma once

#include "script/values/Object.h"

#include <string>
#include <string_view>

namespace tavrel::script {

/// The one copy of a name, so that equal names have equal addresses. It lives as long as the
/// process. Labels and names of variables are such symbols, in lower case.
[[nodiscard]] const std::string* symbol(std::string_view name);

/// One value of a script. Small ones stand inside, the others are objects that copies share: lists,
/// records and dates can change, and whoever holds them sees that, as the language has it.
class Value {
public:
  Value() = default;
  static Value missing() { return Value(ValueKind::missing); }
  static Value boolean(bool value);
  static Value integer(std::int64_t value);
  static Value real(double value);
  static Value constant(std::string_view name);
  static Value typeName(std::string_view name);
  template <typename T> explicit Value(const Ref<T>& object) : Value(object.get()) {}
  explicit Value(Object* object);

  Value(const Value& other) : kind_(other.kind_), held_(other.held_) { retain(); }
  Value(Value&& other) noexcept : kind_(other.kind_), held_(other.held_) {
    other.kind_ = ValueKind::undefined;
  }
  Value& operator=(const Value& other) {
    Value copy(other);
    swap(copy);
    return *this;
  }
  Value& operator=(Value&& other) noexcept {
    Value moved(std::move(other));
    swap(moved);
    return *this;
  }
  ~Value() {
    if (isObject())
      held_.object->release();
  }

  [[nodiscard]] ValueKind kind() const { return kind_; }
  [[nodiscard]] bool is(ValueKind kind) const { return kind_ == kind; }
  [[nodiscard]] bool isNumber() const {
    return kind_ == ValueKind::integer || kind_ == ValueKind::real;
  }
  [[nodiscard]] bool isObject() const { return kind_ >= ValueKind::text; }

  /// Each of these is for values of its own kind; for another kind the answer is meaningless.
  [[nodiscard]] bool boolean() const { return held_.boolean; }
  [[nodiscard]] std::int64_t integer() const { return held_.integer; }
  [[nodiscard]] double real() const { return held_.real; }
  [[nodiscard]] const std::string& name() const { return *held_.symbol; }
  [[nodiscard]] Object* object() const { return held_.object; }
  /// An integer or a real as a real.
  [[nodiscard]] double number() const {
    return kind_ == ValueKind::integer ? static_cast<double>(held_.integer) : held_.real;
  }
  /// The object, as a T; null for a value of another kind.
  template <typename T> [[nodiscard]] T* as() const {
    return kind_ == T::valueKind ? static_cast<T*>(held_.object) : nullptr;
  }

private:
  explicit Value(ValueKind kind) : kind_(kind) {}
  void retain() const {
    if (isObject())
      held_.object->retain();
  }
  void swap(Value& other) noexcept {
    std::swap(kind_, other.kind_);
    std::swap(held_, other.held_);
  }

  ValueKind kind_ = ValueKind::undefined;
  union Held {
    std::int64_t integer = 0;
    bool boolean;
    double real;
    const std::string* symbol;
    Object* object;
  } held_;
};

} // namespace tavrel::script
