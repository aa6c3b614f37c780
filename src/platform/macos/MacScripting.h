#pragma once

#include "platform/ScriptableApplication.h"

namespace tavrel {

/// The application, for the commands and properties of the scripting definition: the system makes
/// their handlers, so that they find it here.
class MacScripting final : public Scripting {
public:
  void setApplication(ScriptableApplication* application) override { answering_ = application; }
  /// Null before it is set.
  [[nodiscard]] static ScriptableApplication* application() { return answering_; }

private:
  static inline ScriptableApplication* answering_ = nullptr;
};

} // namespace tavrel
