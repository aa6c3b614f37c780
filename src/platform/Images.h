#pragma once

#include "base/PropertyList.h"
#include "platform/Files.h"
#include "platform/Image.h"

#include <optional>
#include <string>

namespace tavrel {

/// Pictures: the application's own, those inside data, and the icons of files.
class Images {
public:
  virtual ~Images() = default;

  /// The application's resource of that name (no ending), at its natural size; nothing when
  /// missing.
  [[nodiscard]] virtual std::optional<Image> named(const std::string& name) = 0;

  /// A picture from image data in any format the desktop reads; nothing when it is none.
  [[nodiscard]] virtual std::optional<Image> fromData(const Bytes& data) = 0;

  /// The icon of the file at an absolute path, `menuIconSize`; nothing when no file is there.
  /// Cheap: what is costly to find or draw is found when the image is first drawn.
  [[nodiscard]] virtual std::optional<Image> iconForFile(const std::string& path) = 0;

  /// The same for a file of which a listing has just told what it is: it is not looked for again.
  /// Nothing for the kind `none`.
  [[nodiscard]] virtual std::optional<Image> iconForListedFile(const std::string& path,
                                                               FileKind kind) = 0;
};

} // namespace tavrel
