#include "script/running/Statement.h"

namespace tavrel::script {

Flow Block::run(Frame& frame) const {
  frame.runtime.guardStack();
  for (const StatementPtr& statement : statements_) {
    try {
      frame.runtime.step();
      const Flow flow = statement->run(frame);
      if (flow != Flow::next)
        return flow;
    } catch (ScriptError& error) {
      if (error.span.length == 0)
        error.span = statement->span;
      throw;
    }
  }
  return Flow::next;
}

} // namespace tavrel::script
