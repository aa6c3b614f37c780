#pragma once

#include "platform/ScriptableApplication.h"

#include <QObject>

namespace tavrel {

class BusObject;

/// The application, for whoever asks it on this desktop: other programs over D-Bus, and scripts.
/// Without an application there is no such interface on the bus.
class LinuxScripting final : public QObject, public Scripting {
public:
  /// The object must outlive this.
  explicit LinuxScripting(BusObject& object) : object_(object) {}
  ~LinuxScripting() override;

  void setApplication(ScriptableApplication* application) override;
  /// Null while nobody answers.
  [[nodiscard]] ScriptableApplication* application() const { return application_; }

private:
  enum class Removal { none, asked };
  void askForRemoval();
  void remove();

  BusObject& object_;
  ScriptableApplication* application_ = nullptr;
  Removal removal_ = Removal::none;
};

} // namespace tavrel
