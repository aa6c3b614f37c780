#pragma once

#include <cstddef>
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

class Heap;

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

/// An object that can hold itself, directly or through others. A heap knows all of them and
/// empties those that are left, so that circles of them are freed too.
class Container : public Object {
public:
  Container(ValueKind kind, Heap& heap);
  ~Container() override;
  /// Lets go of all it holds.
  virtual void empty() = 0;

protected:
  [[nodiscard]] Heap& heap() const { return heap_; }

private:
  friend class Heap;
  Heap& heap_;
  Container* previous_ = nullptr;
  Container* next_ = nullptr;
};

/// The containers of one engine, and how much its objects may hold.
class Heap {
public:
  Heap() = default;
  Heap(const Heap&) = delete;
  Heap& operator=(const Heap&) = delete;
  ~Heap() { clear(); }

  /// Counts bytes (or elements, at 16 bytes each) that are taken. Throws ScriptError
  /// (`outOfMemory`) when they would be more than `limit`.
  void take(std::size_t bytes);
  void giveBack(std::size_t bytes) { used_ -= bytes; }
  /// Empties all containers that are left: those that hold each other in a circle.
  void clear();

  std::size_t limit = std::size_t{512} << 20U;

private:
  friend class Container;
  Container* first_ = nullptr;
  std::size_t used_ = 0;
};

/// What an operation needs on the way to its result, counted for as long as this lives.
class Loan {
public:
  explicit Loan(Heap& heap) : heap_(&heap) {}
  Loan(Loan&& other) noexcept : heap_(other.heap_), taken_(std::exchange(other.taken_, 0)) {}
  Loan& operator=(Loan&&) = delete;
  Loan(const Loan&) = delete;
  Loan& operator=(const Loan&) = delete;
  ~Loan() { heap_->giveBack(taken_); }
  /// Throws as Heap::take does.
  void take(std::size_t bytes) {
    heap_->take(bytes);
    taken_ += bytes;
  }

private:
  Heap* heap_;
  std::size_t taken_ = 0;
};

} // namespace tavrel::script
