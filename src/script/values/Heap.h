#pragma once

#include "script/values/Object.h"

#include <cstddef>

namespace tavrel::script {

class Heap;

/// An object that can hold itself, directly or through others, so that its reference count may
/// never become 0. A heap knows all of these and empties those that are left.
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

/// The containers of one engine, and a count of the memory that its objects take.
class Heap {
public:
  Heap() = default;
  Heap(const Heap&) = delete;
  Heap& operator=(const Heap&) = delete;
  ~Heap() { clear(); }

  /// Counts bytes as taken. Throws ScriptError (`outOfMemory`) when they would be more than `limit`
  /// in all, and then counts none of them.
  void take(std::size_t bytes);
  void giveBack(std::size_t bytes) { used_ -= bytes; }
  /// Empties all containers that are left, so that those are freed that hold each other in a
  /// circle. Only when nobody needs any of them.
  void clear();

  std::size_t limit = std::size_t{512} << 20U; ///< in bytes

private:
  friend class Container;
  Container* first_ = nullptr;
  std::size_t used_ = 0;
};

/// Memory that an operation needs on the way to its result, counted for as long as this lives.
class HeapReservation {
public:
  explicit HeapReservation(Heap& heap) : heap_(&heap) {}
  HeapReservation(HeapReservation&& other) noexcept
      : heap_(other.heap_), taken_(std::exchange(other.taken_, 0)) {}
  HeapReservation& operator=(HeapReservation&&) = delete;
  HeapReservation(const HeapReservation&) = delete;
  HeapReservation& operator=(const HeapReservation&) = delete;
  ~HeapReservation() { heap_->giveBack(taken_); }
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
