#include "script/values/Runtime.h"

#include <algorithm>

namespace tavrel::script {
namespace {

constexpr std::uint64_t stepsBetweenChecks = 4096;

std::uintptr_t stackPosition() {
  return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
}

} // namespace

Runtime::Runtime(Heap& runHeap, Host& runHost, SourceBinder binder, Author writer, Limits limits)
    : heap(runHeap), host(runHost), bindSource(binder), author(writer), delimiters(text({})),
      random(std::random_device{}()), limits_(limits), stackStart_(stackPosition()) {}

void Runtime::check() {
  if (steps_ > limits_.steps)
    throw ScriptError{errors::timedOut, "The script takes too long."};
  if (host.shouldStop())
    throw ScriptError{errors::userCanceled, "User canceled."};
  nextCheck_ = std::min(steps_ + stepsBetweenChecks, limits_.steps);
}

void Runtime::guardStack() const {
  const std::uintptr_t here = stackPosition();
  if ((here > stackStart_ ? here - stackStart_ : stackStart_ - here) > limits_.stack)
    throw ScriptError{errors::stackOverflow, "Stack overflow."};
}

Value Runtime::text(std::string value) const {
  return Value(Ref(new Text(heap, std::move(value))));
}

Value Runtime::list(std::vector<Value> values) const {
  return Value(Ref(new List(heap, std::move(values))));
}

Value Runtime::record(std::vector<Record::Entry> entries) const {
  return Value(Ref(new Record(heap, std::move(entries))));
}

Value Runtime::date(double seconds) const {
  return Value(Ref(new Date(seconds)));
}

Value Runtime::file(std::string path) const {
  return Value(Ref(new File(std::move(path), false)));
}

} // namespace tavrel::script
