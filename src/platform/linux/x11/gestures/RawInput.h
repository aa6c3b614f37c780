#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>

struct xcb_connection_t;

namespace tavrel {

enum class RawInputKind { keyDown, keyUp, buttonDown, buttonUp, mappingChanged };

/// An event of a keyboard or mouse before any program has it.
struct RawInputEvent {
  RawInputKind kind{};
  std::uint32_t detail = 0; ///< server key code or button number
  std::uint16_t source = 0; ///< the device it is from
  std::uint32_t time = 0;   ///< of the server, in milliseconds
};

/// The keys and buttons of all programs, over a connection of its own; also while another program
/// holds keyboard and pointer for itself.
class RawInput {
public:
  /// Null when the display does not tell.
  [[nodiscard]] static std::unique_ptr<RawInput> create();
  ~RawInput();
  RawInput(const RawInput&) = delete;
  RawInput& operator=(const RawInput&) = delete;

  [[nodiscard]] xcb_connection_t& connection() { return *connection_; }

  /// The next event that has arrived; nothing when there is none.
  [[nodiscard]] std::optional<RawInputEvent> next();
  /// Returns when all that has happened up to now has arrived.
  void waitUntilUpToDate();
  [[nodiscard]] bool hasFailed() const;

  /// The devices through which programs make key events.
  [[nodiscard]] std::set<std::uint16_t> programDevices();

private:
  explicit RawInput(xcb_connection_t* connection) : connection_(connection) {}
  [[nodiscard]] bool select();

  xcb_connection_t* connection_;
  std::uint8_t extension_ = 0;
};

} // namespace tavrel
