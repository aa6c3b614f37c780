#include "contract/PasteboardsContract.h"

#import "contract/macos/MacTool.h"
#include "platform/macos/MacPasteboards.h"

namespace tavrel {
namespace {

class MacPasteboardsWorld {
public:
  Pasteboards& pasteboards() { return adapter_; }
  void copyElsewhere(const std::string& text) { outputOfTool("/usr/bin/pbcopy", {}, text); }

private:
  MacPasteboards adapter_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, PasteboardsContract, MacPasteboardsWorld);

TEST(MacPasteboards, ANamedOneIsEmptyWhenItIsFirstAskedFor) {
  MacPasteboards ended;
  ended.named("qorvane.tavrel.test").declareTypes({pasteboardType::string});
  MacPasteboards next;
  EXPECT_TRUE(next.named("qorvane.tavrel.test").types().empty());
}

} // namespace
} // namespace tavrel
