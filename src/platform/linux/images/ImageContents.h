#pragma once

#include "platform/Image.h"

#include <QByteArray>
#include <QIcon>

#include <optional>
#include <string>

namespace tavrel {

/// A picture from the content of an image file, at its natural size (a pixel is a point). A
/// drawing stays one and is drawn sharp at every scale. Nothing for data that is no picture, for
/// one that would unpack to more than 4096 by 4096 pixels, and for a drawing that refers to
/// image files.
[[nodiscard]] std::optional<Image> imageFromData(const QByteArray& data);

/// The same from a regular file of at most 16 MiB.
[[nodiscard]] std::optional<Image> imageFromFile(const std::string& path);

/// An icon in the middle of its place, in the variant made for the size and scale.
[[nodiscard]] Image imageFromIcon(const QIcon& icon, Size size);

} // namespace tavrel
