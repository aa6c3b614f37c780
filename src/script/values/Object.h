#pragma once

#include <cstdint>
#include <utility>

namespace tavrel::script {

enum class ValueKind : std::uint8_t {
  undefined, ///< no value: a variable that was never set, a handler that gives nothing
  missing,   ///< `missing value`
  boolean,
  integer,
  real,
  constant, ///< as `yes` or `January`
  typeName, ///< a class, as `list`
  // The values from here on are objects with a reference count.
  text,
  list,
  record,
  date,
  file,
  script,
  specifier,
  reference
};

/// What a value holds that does not fit inside it, with a reference count. Objects that are no
/// longer needed are freed in a loop, so that to free a list nested a million deep takes no stack.
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

/// A pointer that counts as a reference to its object; null when empty.
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
