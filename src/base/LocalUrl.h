#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// The path of a file URL without a host or of this machine ("localhost"), byte for byte: names of
/// files need not be UTF-8. Nothing for any other text.
[[nodiscard]] std::optional<std::string> localPathOfUrl(std::string_view url);

} // namespace tavrel
