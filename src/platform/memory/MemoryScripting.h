#pragma once

#include "platform/ScriptableApplication.h"

namespace tavrel {

/// Where a test finds the application that scripts talk to.
class MemoryScripting final : public Scripting {
public:
  struct Control {
    ScriptableApplication* application = nullptr;
  };
  Control control;

  void setApplication(ScriptableApplication* application) override {
    control.application = application;
  }
};

} // namespace tavrel
