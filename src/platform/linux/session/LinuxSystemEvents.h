#pragma once

#include "platform/SystemEvents.h"

namespace tavrel {

/// Log-out through the session manager at hand (GNOME and its relatives, Xfce, Plasma, LXQt), found
/// by its name on the session bus. Without one nothing happens, which is told on standard error:
/// ending the session by force would lose what is not saved.
class LinuxSystemEvents final : public SystemEvents {
public:
  std::int32_t send(const SystemEvent& event) override;
};

} // namespace tavrel
