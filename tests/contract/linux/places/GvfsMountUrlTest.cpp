#include "platform/linux/places/GvfsMountUrl.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(GvfsMountUrl, IsMadeOfTheNameOfTheMount) {
  EXPECT_EQ(urlOfGvfsMount("sftp:host=example.org,user=me,port=2222"),
            "sftp://me@example.org:2222/");
  EXPECT_EQ(urlOfGvfsMount("smb-share:server=nas,share=a%20b"), "smb://nas/a%20b");
  EXPECT_EQ(urlOfGvfsMount("dav:host=cloud,ssl=true"), "davs://cloud/");
  EXPECT_EQ(urlOfGvfsMount("mtp:host=phone"), std::nullopt);
  EXPECT_EQ(urlOfGvfsMount("sftp:"), std::nullopt);
  EXPECT_EQ(urlOfGvfsMount("sftp"), std::nullopt);
  EXPECT_EQ(urlOfGvfsMount(""), std::nullopt);
}

} // namespace
} // namespace tavrel
