#pragma once

namespace tavrel {

/// Whether the X server that DISPLAY names answers.
[[nodiscard]] bool serverAnswers();

} // namespace tavrel
