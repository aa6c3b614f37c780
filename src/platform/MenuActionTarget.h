#pragma once

#include "platform/Menu.h"

namespace tavrel {

/// Where a chosen entry goes. The entry stays alive during the call.
class MenuActionTarget {
public:
  virtual ~MenuActionTarget() = default;
  virtual void menuItemChosen(MenuItem& item) = 0;
};

} // namespace tavrel
