#pragma once

#include "platform/Image.h"

#include <optional>

namespace tavrel {

/// The controller's own icons: four of 16 by 16 points, two badges at their natural size.
struct MenuImages {
  std::optional<Image> servicesIcon;
  std::optional<Image> urlIcon;
  std::optional<Image> prefIcon;
  std::optional<Image> addToTVRMIcon;
  std::optional<Image> service_mark_image;
  std::optional<Image> move_badge_image;
};

} // namespace tavrel
