#pragma once

#include "script/values/Runtime.h"
#include "script/values/ScriptObject.h"

#include <array>

namespace tavrel::script {

/// One call of a handler while it runs: its variables, the script that defines it, and the script
/// it speaks for.
struct Frame {
  /// Few variables stand in the frame itself, which spares most calls an allocation.
  static constexpr std::size_t inlineCount = 6;

  Frame(Runtime& frameRuntime, ScriptObject& definingScript, std::size_t count)
      : runtime(frameRuntime), self(definingScript), heapLocals(count > inlineCount ? count : 0),
        locals(count > inlineCount ? heapLocals.data() : inlineLocals.data()) {}
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;

  Runtime& runtime;
  ScriptObject& self;       ///< defines the handler; the expressions name its fields
  Frame* creator = nullptr; ///< of the handler that makes a script, while its properties get values
  Value me;                 ///< the script that was called: self, or one that inherits from it
  Value target;             ///< of the enclosing `tell`; undefined outside of one
  Value result;             ///< of the last statement
  Value returned;           ///< what `return` gives back
  std::array<Value, inlineCount> inlineLocals;
  std::vector<Value> heapLocals;
  Value* locals; ///< the variables, by slot, in one of the two before
};

/// Makes a value the target of the frame for as long as it lives.
class TargetGuard {
public:
  TargetGuard(Frame& frame, Value target) : frame_(frame), outer_(std::move(frame.target)) {
    frame.target = std::move(target);
  }
  TargetGuard(const TargetGuard&) = delete;
  TargetGuard& operator=(const TargetGuard&) = delete;
  ~TargetGuard() { frame_.target = std::move(outer_); }

private:
  Frame& frame_;
  Value outer_;
};

} // namespace tavrel::script
