#include "invoke/AlertVolume.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;

class AlertVolume : public CoreTest {
protected:
  AlertVolume() { beepLevel = 0; }

  MemorySounds::Control& sounds = desktop.sounds.control;
};

TEST_F(AlertVolume, IsKeptWhileTheBeepIsSilent) {
  sounds.alertVolume = 70;
  muteVolume(true);
  EXPECT_EQ(sounds.alertVolume, 0);
  EXPECT_EQ(beepLevel, 70);
  muteVolume(false);
  EXPECT_EQ(sounds.alertVolume, 70);
}

TEST_F(AlertVolume, ComesBackWhenASilentBeepIsSilencedAgain) {
  sounds.alertVolume = 70;
  muteVolume(true);
  muteVolume(true);
  EXPECT_THAT(sounds.alertVolumes, ElementsAre(0, 70));
}

TEST_F(AlertVolume, OfABeepThatWasNeverHeardStaysNothing) {
  muteVolume(true);
  muteVolume(false);
  EXPECT_EQ(sounds.alertVolume, 0);
}

TEST_F(AlertVolume, IsTheOneKeptWhateverWasSetMeanwhile) {
  sounds.alertVolume = 70;
  muteVolume(true);
  sounds.alertVolume = 30;
  muteVolume(false);
  EXPECT_EQ(sounds.alertVolume, 70);
}

} // namespace
} // namespace tavrel
