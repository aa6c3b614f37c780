#pragma once

#include "platform/Alerts.h"

namespace tavrel {

/// Message boxes of the toolkit, in front of every window. The escape key is the alternate button.
class LinuxAlerts final : public Alerts {
public:
  AlertAnswer run(const AlertPanel& panel) override;
};

} // namespace tavrel
