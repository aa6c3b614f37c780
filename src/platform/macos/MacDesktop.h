#pragma once

#include "platform/Platform.h"

#include <memory>

namespace tavrel {

class MacHotKeys;

/// The whole macOS desktop: one of each adapter, alive as long as this is.
class MacDesktop final {
public:
  /// Needs the application object.
  MacDesktop();
  ~MacDesktop();
  MacDesktop(const MacDesktop&) = delete;
  MacDesktop& operator=(const MacDesktop&) = delete;

  [[nodiscard]] Platform& ports();
  [[nodiscard]] MacHotKeys& hotKeys();

private:
  struct Adapters;
  std::unique_ptr<Adapters> adapters_;
};

} // namespace tavrel
