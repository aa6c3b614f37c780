#include "contract/SoundsContract.h"

#include "platform/linux/sounds/LinuxSounds.h"
#include "support/TemporaryFolder.h"

namespace tavrel {
namespace {

class LinuxWorld {
public:
  LinuxWorld() { std::filesystem::copy(TAVREL_RESOURCES "/sounds", folder_.path("sounds")); }
  Sounds& sounds() { return sounds_; }
  void removeSound(const std::string& name) {
    std::filesystem::remove(folder_.path("sounds/" + name + ".wav"));
  }

private:
  TemporaryFolder folder_;
  LinuxSounds sounds_{folder_.path()};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, SoundsContract, LinuxWorld);

TEST(LinuxSounds, TheEndingOfANameDoesNotMatter) {
  LinuxSounds sounds(TAVREL_RESOURCES);
  EXPECT_TRUE(sounds.play("Pop.aiff"));
  EXPECT_TRUE(sounds.play("Pop.wav"));
}

TEST(LinuxSounds, TheCaseOfANameMatters) {
  LinuxSounds sounds(TAVREL_RESOURCES);
  EXPECT_FALSE(sounds.play("pop"));
}

TEST(LinuxSounds, ANameIsNoPath) {
  TemporaryFolder folder;
  std::filesystem::create_directories(folder.path("sounds"));
  folder.write("outside.wav", "x");
  LinuxSounds sounds(folder.path());
  for (const std::string& name : {std::string(), std::string("../outside"), folder.path("outside")})
    EXPECT_FALSE(sounds.play(name)) << name;
}

} // namespace
} // namespace tavrel
