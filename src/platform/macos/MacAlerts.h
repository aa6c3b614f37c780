#pragma once

#include "platform/Alerts.h"

namespace tavrel {

/// Alert panels. The application is brought to the front first: an agent's panel would open behind
/// everything. The escape key closes it without a button.
class MacAlerts final : public Alerts {
public:
  AlertAnswer run(const AlertPanel& panel) override;
};

} // namespace tavrel
