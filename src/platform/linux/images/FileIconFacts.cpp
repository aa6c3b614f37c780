#include "platform/linux/images/FileIconFacts.h"

#include "platform/linux/system/BoundedFile.h"

namespace tavrel {

namespace {
constexpr std::size_t largestPicture = std::size_t{16} << 20; // bytes
}

FileIconFacts readFileIconFacts(const std::string& path, const SpecialFolders& folders) {
  FileIconFacts evidence{chooseIcon(path, folders), std::nullopt};
  if (!evidence.choice.picture.empty())
    evidence.picture = readFile(evidence.choice.picture, largestPicture);
  return evidence;
}

} // namespace tavrel
