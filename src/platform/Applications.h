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
  std::vector<std::string> otherNames{}; ///< what else it goes by, as its program; for `nameMeant`
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

  /// The whole name of the application that a text means, a name or a path, while `front` is in
  /// front; the name of `front` for all that it goes by. Nothing when the desktop cannot tell: then
  /// the last component of the text without its ending is the name. Cheap: asked for each entry of
  /// the menu.
  [[nodiscard]] virtual std::optional<std::string> nameMeant(const std::string& text,
                                                             const RunningApplication& front) = 0;
};

} // namespace tavrel
