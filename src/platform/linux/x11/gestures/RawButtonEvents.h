#pragma once

#include <cstdint>

struct xcb_connection_t;

namespace tavrel {

/// Whether motions are told, too.
enum class RawMotion { ignored, told };

/// Asks for the raw button events of the whole server. False when it has no XInput 2.
[[nodiscard]] bool selectRawButtons(xcb_connection_t& connection, RawMotion motion);

/// The major code of the extension's events on this connection; 0 when there is none.
[[nodiscard]] std::uint8_t rawEventExtension(xcb_connection_t& connection);

} // namespace tavrel
