#include "script/values/Heap.h"

#include "script/ScriptError.h"

#include <vector>

namespace tavrel::script {

Container::Container(ValueKind kind, Heap& heap) : Object(kind), heap_(heap), next_(heap.first_) {
  if (next_)
    next_->previous_ = this;
  heap.first_ = this;
}

Container::~Container() {
  if (next_)
    next_->previous_ = previous_;
  (previous_ ? previous_->next_ : heap_.first_) = next_;
}

void Heap::clear() {
  std::vector<Ref<Container>> left;
  for (Container* each = first_; each; each = each->next_)
    left.emplace_back(each);
  for (const Ref<Container>& each : left)
    each->empty();
}

void Heap::take(std::size_t bytes) {
  if (bytes > limit || used_ > limit - bytes)
    throw ScriptError{errors::outOfMemory, "Out of memory."};
  used_ += bytes;
}

} // namespace tavrel::script
