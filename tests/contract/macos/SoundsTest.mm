#include "contract/SoundsContract.h"

#include "contract/macos/Skipping.h"
#include "platform/macos/MacSounds.h"

namespace tavrel {
namespace {

struct MacSoundsWorld {
  MacSoundsWorld() {
    skipTests({"AMissingSoundIsTold"}, "the system remembers the sounds of a bundle");
  }
  Sounds& sounds() { return adapter; }
  void removeSound(const std::string&) {}

  MacSounds adapter;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, SoundsContract, MacSoundsWorld);

TEST(MacSounds, ANameWithoutASoundIsTold) {
  MacSounds sounds;
  for (const char* name : {"", "no such sound", "../copy", "/System/Library/Sounds/Pop"})
    EXPECT_FALSE(sounds.play(name)) << name;
}

TEST(MacSounds, TheLoudnessOfTheBeepStaysAsItWas) {
  MacSounds sounds;
  const std::int32_t before = sounds.alertVolume();
  sounds.setAlertVolume(before);
  EXPECT_EQ(sounds.alertVolume(), before);
}

} // namespace
} // namespace tavrel
