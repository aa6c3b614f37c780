#pragma once

#include "platform/Sounds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// Every desktop's sounds. `World` has `sounds()` and `removeSound(name)`; "copy", "didMoved" and
/// "Pop" are there before.
template <class World> class SoundsContract : public ::testing::Test {
protected:
  Sounds& sounds() { return world.sounds(); }
  World world;
};

TYPED_TEST_SUITE_P(SoundsContract);

TYPED_TEST_P(SoundsContract, TheProgramsSoundsArePlayed) {
  for (const char* name : {"copy", "didMoved", "Pop"})
    EXPECT_TRUE(this->sounds().play(name)) << name;
}

TYPED_TEST_P(SoundsContract, AMissingSoundIsTold) {
  this->world.removeSound("copy");
  EXPECT_FALSE(this->sounds().play("copy"));
  EXPECT_TRUE(this->sounds().play("Pop"));
}

TYPED_TEST_P(SoundsContract, ManySoundsAtOnceAreTaken) {
  for (int i = 0; i < 100; ++i) {
    EXPECT_TRUE(this->sounds().play("copy"));
    this->sounds().beep();
  }
}

REGISTER_TYPED_TEST_SUITE_P(SoundsContract, TheProgramsSoundsArePlayed, AMissingSoundIsTold,
                            ManySoundsAtOnceAreTaken);

} // namespace tavrel
