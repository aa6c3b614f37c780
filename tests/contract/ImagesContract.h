#pragma once

#include "platform/Images.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// Every desktop's pictures. `World` has `images()`, `addResource(name, size)`, `pictureData()` (a
/// picture of 32 by 32), `junkData()`, `addFile()`, `addFolder()` and `brokenLink()`, the last
/// three answering an absolute path.
template <class World> class ImagesContract : public ::testing::Test {
protected:
  Images& images() { return world.images(); }
  World world;
};

TYPED_TEST_SUITE_P(ImagesContract);

TYPED_TEST_P(ImagesContract, AResourceHasItsNaturalSize) {
  this->world.addResource("badge", Size{10, 8});
  const auto image = this->images().named("badge");
  ASSERT_TRUE(image);
  EXPECT_EQ(image->size, (Size{10, 8}));
  ASSERT_EQ(image->layers.size(), 1U);
  EXPECT_EQ(image->layers.front().size, image->size);
  EXPECT_NE(image->layers.front().content, nullptr);
}

TYPED_TEST_P(ImagesContract, AMissingResourceIsNothing) {
  EXPECT_FALSE(this->images().named("none"));
  EXPECT_FALSE(this->images().named(""));
  EXPECT_FALSE(this->images().named("../badge"));
}

TYPED_TEST_P(ImagesContract, DataOfAPictureHasItsNaturalSize) {
  const auto image = this->images().fromData(this->world.pictureData());
  ASSERT_TRUE(image);
  EXPECT_EQ(image->size, (Size{32, 32}));
  EXPECT_EQ(image->layers.size(), 1U);
}

TYPED_TEST_P(ImagesContract, DataThatIsNoPictureIsNothing) {
  EXPECT_FALSE(this->images().fromData({}));
  EXPECT_FALSE(this->images().fromData(this->world.junkData()));
}

TYPED_TEST_P(ImagesContract, TheIconOfAFileHasTheSizeOfMenuIcons) {
  for (const std::string& path : {this->world.addFile(), this->world.addFolder()}) {
    const auto image = this->images().iconForFile(path);
    ASSERT_TRUE(image) << path;
    EXPECT_EQ(image->size, menuIconSize);
    EXPECT_EQ(image->layers.size(), 1U);
  }
}

TYPED_TEST_P(ImagesContract, WhereNoFileIsThereIsNoIcon) {
  EXPECT_FALSE(this->images().iconForFile(this->world.addFile() + "none"));
  EXPECT_FALSE(this->images().iconForFile(this->world.brokenLink()));
  EXPECT_FALSE(this->images().iconForFile(""));
  EXPECT_FALSE(this->images().iconForFile("relative"));
}

TYPED_TEST_P(ImagesContract, TheIconOfAListedFileIsThereUnlessItLeadsNowhere) {
  const std::string path = this->world.addFile();
  const auto image = this->images().iconForListedFile(path, FileKind::plain);
  ASSERT_TRUE(image);
  EXPECT_EQ(image->size, menuIconSize);
  EXPECT_TRUE(this->images().iconForListedFile(path + "gone since", FileKind::plain));
  EXPECT_FALSE(this->images().iconForListedFile(this->world.brokenLink(), FileKind::none));
}

REGISTER_TYPED_TEST_SUITE_P(ImagesContract, AResourceHasItsNaturalSize, AMissingResourceIsNothing,
                            DataOfAPictureHasItsNaturalSize, DataThatIsNoPictureIsNothing,
                            TheIconOfAFileHasTheSizeOfMenuIcons, WhereNoFileIsThereIsNoIcon,
                            TheIconOfAListedFileIsThereUnlessItLeadsNowhere);

} // namespace tavrel
