#pragma once

#include "platform/Applications.h"

#include <map>

namespace tavrel {

/// The applications of a desktop made of plain values.
class MemoryApplications final : public Applications {
public:
  struct Control {
    std::vector<RunningApplication> running; ///< in the order they were started
    std::optional<RunningApplication> active;
    /// By process identifier; a running application without an entry answers {"Flavor": 2}.
    std::map<std::int32_t, PropertyList> information;
    bool refusesToBringForward = false;
    std::vector<ProcessSerialNumber> broughtToFront; ///< every request, oldest first

    /// Starts an application under the next free process identifier and puts it in front.
    RunningApplication start(const std::string& name, const std::string& path);
    /// Ends an application; when it was active, nothing is.
    void end(ProcessSerialNumber process);
  } control;

  [[nodiscard]] std::optional<RunningApplication> active() override;
  [[nodiscard]] std::vector<RunningApplication> launched() override;
  bool bringToFront(ProcessSerialNumber process) override;
  [[nodiscard]] std::optional<PropertyList>
  processInformation(ProcessSerialNumber process) override;
  /// The name of `front` for its `otherNames`; a desktop of plain values knows no others.
  [[nodiscard]] std::optional<std::string> nameMeant(const std::string& text,
                                                     const RunningApplication& front) override;
};

} // namespace tavrel
