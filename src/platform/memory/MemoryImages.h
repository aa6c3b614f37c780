#pragma once

#include "platform/Files.h"
#include "platform/Images.h"

#include <map>
#include <set>

namespace tavrel {

/// Pictures that are names: "resource urlIcon", "data 12 bytes", "icon of /a/b". Each content is a
/// NamedImageContent.
class MemoryImages final : public Images {
public:
  /// The files decide which paths have an icon; not owned.
  explicit MemoryImages(Files& files) : files_(files) {}

  /// What tests set and read.
  struct Control {
    std::map<std::string, Size> resources; ///< the named images there are, with their natural size
    Size dataSize{32.0, 32.0};             ///< natural size of pictures made from data
    std::set<Bytes> junk;                  ///< data that is no picture; empty data never is one
    std::set<std::string> withoutIcon;     ///< paths without an icon, though a file is there

    std::vector<std::string> named; ///< what was asked for, in order
    std::vector<std::string> iconsAsked;
  };
  Control control;

  std::optional<Image> named(const std::string& name) override;
  std::optional<Image> fromData(const Bytes& data) override;
  std::optional<Image> iconForFile(const std::string& path) override;
  std::optional<Image> iconForListedFile(const std::string& path, FileKind kind) override;

private:
  Files& files_;
};

/// The names of an image's pictures, bottom layer first; "?" for a picture without a name.
[[nodiscard]] std::vector<std::string> pictureNames(const Image& image);

} // namespace tavrel
