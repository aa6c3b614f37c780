#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// Names a process for as long as it runs.
struct ProcessSerialNumber {
  std::uint32_t high = 0;
  std::uint32_t low = 0;
  friend bool operator==(const ProcessSerialNumber&, const ProcessSerialNumber&) = default;
};

/// An application with a face: one process, described.
struct RunningApplication {
  std::optional<std::string> name;
  std::optional<std::string> path; ///< of the application, absolute
  std::int32_t processIdentifier = 0;
  ProcessSerialNumber serialNumber{};
};

/// The applications that run.
class Applications {
public:
  virtual ~Applications() = default;

  /// The one in front; nothing when there is none (an empty desktop).
  [[nodiscard]] virtual std::optional<RunningApplication> active() = 0;

  /// Those with a face, in the order they were started; each once.
  [[nodiscard]] virtual std::vector<RunningApplication> launched() = 0;

  /// False when the process is gone or the desktop refused.
  virtual bool bringToFront(ProcessSerialNumber process) = 0;

  /// What the desktop knows of a process, under the key "Flavor" among others (2: it has windows);
  /// nothing when the process is gone.
  [[nodiscard]] virtual std::optional<PropertyList>
  processInformation(ProcessSerialNumber process) = 0;
};

} // namespace tavrel
