#pragma once

#include "platform/Image.h"

#include <string>

namespace tavrel {

/// A picture of the memory desktop that can be told by its name.
class NamedImageContent : public ImageContent {
public:
  [[nodiscard]] virtual std::string name() const = 0;
};

} // namespace tavrel
