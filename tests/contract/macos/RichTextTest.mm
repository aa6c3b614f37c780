#include "contract/RichTextContract.h"

#include "platform/macos/MacRichText.h"

namespace tavrel {
namespace {

struct MacRichTextWorld {
  RichText& richText() { return adapter; }
  void addRtf(const Bytes&, const std::string&) {}

  MacRichText adapter;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, RichTextContract, MacRichTextWorld);

TEST(MacRichText, JunkThatBeginsAsAnArchiveOfFilesHasNoWords) {
  MacRichText richText;
  const std::string junk("rtfd\0\0\0\0\3\0\0\0", 12);
  EXPECT_EQ(richText.plainTextOfRtfd(bytesOf(junk)).value_or(""), "");
}

} // namespace
} // namespace tavrel
