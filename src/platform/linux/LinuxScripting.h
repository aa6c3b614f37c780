#pragma once

#include "platform/ScriptableApplication.h"

namespace tavrel {

/// The application, for whoever asks it on this desktop.
class LinuxScripting final : public Scripting {
public:
  void setApplication(ScriptableApplication* application) override { application_ = application; }
  /// Null while nobody answers.
  [[nodiscard]] ScriptableApplication* application() const { return application_; }

private:
  ScriptableApplication* application_ = nullptr;
};

} // namespace tavrel
