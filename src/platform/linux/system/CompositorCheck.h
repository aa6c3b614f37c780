#pragma once

namespace tavrel {

/// Whether the Wayland compositor that WAYLAND_DISPLAY names answers: by its socket, in
/// XDG_RUNTIME_DIR or by a whole path.
[[nodiscard]] bool compositorAnswers();

} // namespace tavrel
