#pragma once

#include "platform/Platform.h"

#include <memory>
#include <string>

namespace tavrel {

/// The whole Linux desktop: one of each adapter, alive as long as this is.
class LinuxDesktop final {
public:
  /// Whether there is a display to start on. The toolkit aborts the program where there is none.
  [[nodiscard]] static bool hasDisplay();

  /// Needs a QApplication. `copyKeyExceptions`: the setting that lists the applications which get
  /// no copy or paste keystroke.
  explicit LinuxDesktop(std::string copyKeyExceptions);
  ~LinuxDesktop();
  LinuxDesktop(const LinuxDesktop&) = delete;
  LinuxDesktop& operator=(const LinuxDesktop&) = delete;

  [[nodiscard]] Platform& ports();

private:
  struct Adapters;
  std::unique_ptr<Adapters> adapters_;
};

} // namespace tavrel
