#include "contract/PasteboardsContract.h"

#include "contract/linux/x11/clipboard/SelectionClient.h"
#include "platform/linux/x11/clipboard/LinuxPasteboards.h"
#include "platform/linux/x11/clipboard/SelectionTarget.h"
#include "support/WaitFor.h"

namespace tavrel {
namespace {

struct LinuxWorld {
  SelectionOwner program{{}}; // owns the clipboard before anyone counts
  LinuxPasteboards adapter;
  Pasteboards& pasteboards() { return adapter; }
  void copyElsewhere(const std::string& text) {
    const auto before = adapter.general().changeCount();
    program.copy({plain("UTF8_STRING", text)});
    ASSERT_TRUE(waitFor([&] { return adapter.general().changeCount() > before; }));
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, PasteboardsContract, LinuxWorld);

TEST(LinuxPasteboards, WithoutADisplayTheGeneralPasteboardIsOurOwn) {
  const std::string display = std::getenv("DISPLAY");
  ::setenv("DISPLAY", ":63999", 1);
  LinuxPasteboards adapter;
  ::setenv("DISPLAY", display.c_str(), 1);
  adapter.general().declareTypes({"a"});
  adapter.general().setString("text", "a");
  EXPECT_EQ(adapter.general().string("a"), "text");
}

TEST(SelectionTarget, NamesAreParsedBackAsTheyWere) {
  const std::vector<SelectionTarget> targets{{"image/png", "image/png", 8, false},
                                             {"COLORS", "INTEGER", 32, false},
                                             {"text/plain;charset=utf-8", "UTF8_STRING", 8, false},
                                             {"a;type=b;format=8", "a;type=b%;format=8", 16, false},
                                             {"a;unread", "a;unread", 8, false},
                                             {"a", "a", 8, true},
                                             {"a;unread", "a;unread", 8, true},
                                             {"", "x", 8, false}};
  for (const SelectionTarget& target : targets)
    EXPECT_EQ(selectionTargetNamed(pasteboardName(target)), target) << pasteboardName(target);
  EXPECT_EQ(pasteboardName(targets[1]), "x11:COLORS;type=INTEGER;format=32");
  EXPECT_FALSE(selectionTargetNamed("NSStringPboardType"));
}

TEST(SelectionTarget, UnreadTargetsHaveNothingToServe) {
  EXPECT_TRUE(hasNothingToServe({}));
  EXPECT_TRUE(hasNothingToServe({"x11:a;unread", "x11:b;unread"}));
  EXPECT_FALSE(hasNothingToServe({"x11:a;unread", "x11:b"}));
  EXPECT_FALSE(hasNothingToServe({"NSStringPboardType"}));
}

} // namespace
} // namespace tavrel
