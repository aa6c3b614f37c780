#include "contract/RichTextContract.h"

#include "platform/memory/MemoryRichText.h"

namespace tavrel {
namespace {

class MemoryRichTextWorld {
public:
  RichText& richText() { return richText_; }
  void addRtf(const Bytes& data, const std::string& words) { richText_.control.rtf[data] = words; }

private:
  MemoryRichText richText_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, RichTextContract, MemoryRichTextWorld);

TEST(MemoryRichText, TextWithAttachmentsIsToldApart) {
  MemoryRichText richText;
  const Bytes data(40, 1);
  richText.control.rtfd.emplace(data, "words");
  EXPECT_EQ(richText.plainTextOfRtfd(data), "words");
  EXPECT_EQ(richText.plainTextOfRtf(data), std::nullopt);
}

} // namespace
} // namespace tavrel
