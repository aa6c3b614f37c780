#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>

struct xcb_connection_t;

namespace tavrel {

enum class RawInputKind { keyDown, keyUp, buttonDown, buttonUp, mappingChanged };

/// A raw event (XInput 2): a key or button of a device, before grabs and focus decide who gets it.
struct RawInputEvent {
  RawInputKind kind{};
  std::uint32_t detail = 0; ///< server key code or button number
  std::uint16_t source = 0; ///< the device it is from
  std::uint32_t time = 0;   ///< of the server, in milliseconds
};

/// Reads every key and button pressed on the server, also while another program has grabbed
/// keyboard and pointer. Has an X connection of its own.
class RawInput {
public:
  /// Null without an X server or without XInput 2.
  [[nodiscard]] static std::unique_ptr<RawInput> create();
  ~RawInput();
  RawInput(const RawInput&) = delete;
  RawInput& operator=(const RawInput&) = delete;

  [[nodiscard]] xcb_connection_t& connection() { return *connection_; }

  /// The next event that has arrived; nothing when there is none.
  [[nodiscard]] std::optional<RawInputEvent> next();
  [[nodiscard]] bool hasFailed() const;

  /// The devices that stand for what programs post (XTest).
  [[nodiscard]] std::set<std::uint16_t> programDevices();

private:
  explicit RawInput(xcb_connection_t* connection) : connection_(connection) {}
  xcb_connection_t* connection_;
  std::uint8_t extension_ = 0; ///< see `rawEventExtension`
};

/// Whether motion events are reported beside those of buttons.
enum class RawMotion { ignored, reported };

/// Selects the raw button events of all pointers; false when the server has no XInput 2.
[[nodiscard]] bool selectRawButtons(xcb_connection_t& connection, RawMotion motion);

/// The number by which the server marks raw events on this connection: the major opcode of XInput.
/// 0 without XInput 2.
[[nodiscard]] std::uint8_t rawEventExtension(xcb_connection_t& connection);

} // namespace tavrel
