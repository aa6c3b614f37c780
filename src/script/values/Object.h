#pragma once

#include <cstdint>
#include <utility>

namespace tavrel::script {

enum class ValueKind : std::uint8_t {
  undefined, ///< a variable that was never set
  missing,   ///< `missing value`
  boolean,
  integer,
  real,
  constant, ///< an enumerated constant, as `yes`
  typeName, ///< a class, as `list`
  // From here on the value is a counted object.
  text,
  list,
  record,
  date,
  file,
  script,
  specifier,
  reference
};

/// A counted object of the engine. Objects that hold others are taken apart one by one, so that a
/// list nested a million deep costs no stack when it goes.
class Object {
public:
  explicit Object(ValueKind kind) : kind_(kind) {}
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  [[nodiscard]] ValueKind kind() const { return kind_; }
  [[nodiscard]] bool isShared() const { return count_ > 1; }
  void retain() { ++count_; }
  void release() {
    if (--count_ == 0)
      dispose(this);
  }

private:
  static void dispose(Object* object);

  std::uint32_t count_ = 0;
  ValueKind kind_;
  Object* nextDead_ = nullptr;
};

/// A counting pointer to an object; null when empty.
template <typename T> class Ref {
public:
  Ref() = default;
  explicit Ref(T* object) : object_(object) { retain(); }
  Ref(const Ref& other) : object_(other.object_) { retain(); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Ref() {
    if (object_)
      object_->release();
  }

  [[nodiscard]] T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

private:
  void retain() {
    if (object_)
      object_->retain();
  }

  T* object_ = nullptr;
};

} // namespace tavrel::script
