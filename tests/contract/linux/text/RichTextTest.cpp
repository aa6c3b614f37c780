#include "contract/RichTextContract.h"

#include "platform/linux/text/LinuxRichText.h"

namespace tavrel {
namespace {

class LinuxWorld {
public:
  RichText& richText() { return richText_; }
  void addRtf(const Bytes&, const std::string&) {}

private:
  LinuxRichText richText_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, RichTextContract, LinuxWorld);

TEST(LinuxRichText, TextWithAttachmentsIsReadOnlyWhereItIsRtf) {
  LinuxRichText richText;
  EXPECT_EQ(richText.plainTextOfRtfd(bytesOf("{\\rtf1 words}")), "words");
  EXPECT_EQ(richText.plainTextOfRtfd(bytesOf("rtfd\1\2\3{\\rtf1 words}")), std::nullopt);
}

} // namespace
} // namespace tavrel
