#pragma once

#include "platform/ScriptableApplication.h"

#include <QObject>

namespace tavrel {

class BusObject;

/// Offers the scriptable application to other programs, over D-Bus, and to scripts. Without an
/// application the D-Bus interface is withdrawn.
class LinuxScripting final : public QObject, public Scripting {
public:
  /// The object must outlive this.
  explicit LinuxScripting(BusObject& object) : object_(object) {}
  ~LinuxScripting() override;

  void setApplication(ScriptableApplication* application) override;
  /// Null when none is set.
  [[nodiscard]] ScriptableApplication* application() const { return application_; }

private:
  enum class Removal { none, scheduled };
  void scheduleRemoval();
  void remove();

  BusObject& object_;
  ScriptableApplication* application_ = nullptr;
  Removal removal_ = Removal::none;
};

} // namespace tavrel
