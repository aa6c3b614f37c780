#pragma once

#include "platform/SystemEvents.h"

namespace tavrel {

/// Logs out through the session manager (GNOME and its forks, Xfce, Plasma, LXQt), found by its
/// name on the session bus. Without one nothing happens, and one line on standard error says so:
/// ending the session by force would lose unsaved work.
class LinuxSystemEvents final : public SystemEvents {
public:
  std::int32_t send(const SystemEvent& event) override;
};

} // namespace tavrel
