#include "platform/linux/processes/MappedFiles.h"

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <unistd.h>

namespace tavrel {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::StartsWith;

std::set<std::string> filesOf(std::int32_t pid) {
  std::set<std::string> files;
  forEachMappedFile(pid, [&](std::string_view file) { files.emplace(file); });
  return files;
}

TEST(MappedFiles, AreTheProgramAndItsLibraries) {
  EXPECT_THAT(filesOf(::getpid()), Contains("contract_linux_MappedFilesTest"));
  EXPECT_THAT(filesOf(::getpid()), Contains(StartsWith("libc.so")));
}

TEST(MappedFiles, OfAProcessThatIsNotThereAreNone) {
  EXPECT_THAT(filesOf(0x3FFFFFFF), IsEmpty());
}

} // namespace
} // namespace tavrel
