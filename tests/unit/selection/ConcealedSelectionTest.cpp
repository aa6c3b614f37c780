#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

/// A password is selected in the application in front as the menu opens.
class ConcealedSelection : public ControllerTest {
protected:
  ConcealedSelection() {
    desktop.files.control.addScript("/run.scpt");
    setTree({fileRecord("applescript", "Run", "file:///run.scpt")});
    controller.applicationWillFinishLaunching();
    answerCopy(desktop, copyPassword("hunter2"));
  }

  void openMenu(std::function<void(OpenMenu&)> person) {
    desktop.presenter.control.person = std::move(person);
    desktop.statusBar.click();
  }

  static std::string captured() {
    return privatePasteboard().string(pasteboardType::string).value_or("nothing");
  }
};

TEST_F(ConcealedSelection, IsForgottenWhenTheMenuClosesWithoutAChoice) {
  openMenu([](OpenMenu&) { EXPECT_EQ(captured(), "hunter2"); });
  EXPECT_EQ(captured(), "");
  EXPECT_THAT(privatePasteboard().types(), ::testing::ElementsAre("NSStringPboardType"));
}

TEST_F(ConcealedSelection, IsThereForTheChosenItemAndForgottenAfterIt) {
  std::string found;
  desktop.scripts.control.files["/run.scpt"].body = [&](MemoryScripts::Properties&) {
    found = captured();
    return osaError::none;
  };
  openMenu([](OpenMenu& open) { EXPECT_TRUE(open.choose({"Run"})); });
  EXPECT_EQ(found, "hunter2");
  EXPECT_EQ(captured(), "");
}

TEST_F(ConcealedSelection, IsKeptWhenTheMenuOpensAndClosesWhileTheItemRuns) {
  std::string found;
  desktop.scripts.control.files["/run.scpt"].body = [&](MemoryScripts::Properties&) {
    openMenu({});
    found = captured();
    return osaError::none;
  };
  openMenu([](OpenMenu& open) { EXPECT_TRUE(open.choose({"Run"})); });
  EXPECT_EQ(found, "hunter2");
  EXPECT_EQ(captured(), "");
}

TEST_F(ConcealedSelection, IsForgottenWithoutAStatusItemToo) {
  controller.deactivateStatusMenu();
  controller.performContextMenu();
  EXPECT_EQ(captured(), "");
}

TEST_F(ConcealedSelection, OfAnotherKindStaysUntilTheNextCapture) {
  answerCopy(desktop, copyText("words"));
  openMenu({});
  EXPECT_EQ(captured(), "words");
}

} // namespace
} // namespace tavrel
