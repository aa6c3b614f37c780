#include "contract/RichTextContract.h"

#include "platform/memory/MemoryRichText.h"

namespace tavrel {
namespace {

class MemoryWorld {
public:
  RichText& richText() { return richText_; }
  void addRtf(const Bytes& data, const std::string& words) { richText_.control.rtf[data] = words; }

private:
  MemoryRichText richText_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, RichTextContract, MemoryWorld);

TEST(MemoryRichText, TextWithAttachmentsIsToldApart) {
  MemoryRichText richText;
  richText.control.rtfd[{1}] = "words";
  EXPECT_EQ(richText.plainTextOfRtfd({1}), "words");
  EXPECT_EQ(richText.plainTextOfRtf({1}), std::nullopt);
}

} // namespace
} // namespace tavrel
