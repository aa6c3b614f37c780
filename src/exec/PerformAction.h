#pragma once

#include "platform/Applications.h"
#include "platform/EntryEffects.h"

#include <cstdint>
#include <string>

namespace tavrel {

class TVController;

/// What a chosen item names; an action reads what it needs.
struct ActionTarget {
  std::string path{};
  std::string url{};         ///< of a service: its name
  std::int32_t openMask = 0; ///< bits of `openType`
  ProcessSerialNumber process{};
};

/// Carries an action out.
void perform(ItemAction action, const ActionTarget& target, TVController& controller);

} // namespace tavrel
