#include "contract/SoundsContract.h"

#include "platform/memory/MemorySounds.h"

namespace tavrel {
namespace {

class MemorySoundsWorld {
public:
  Sounds& sounds() { return sounds_; }
  void removeSound(const std::string& name) { sounds_.control.missing.insert(name); }

private:
  MemorySounds sounds_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, SoundsContract, MemorySoundsWorld);

TEST(MemorySounds, WritesDownWhatIsPlayed) {
  MemorySounds sounds;
  sounds.control.missing = {"none"};
  for (const char* name : {"copy", "none", "Pop"})
    (void)sounds.play(name);
  sounds.beep();
  EXPECT_THAT(sounds.control.played, ::testing::ElementsAre("copy", "Pop"));
  EXPECT_EQ(sounds.control.beeps, 1);
}

} // namespace
} // namespace tavrel
