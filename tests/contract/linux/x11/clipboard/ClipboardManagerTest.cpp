#include "contract/linux/x11/clipboard/ClipboardFixture.h"

namespace tavrel {
namespace {

/// A clipboard manager that keeps what it is asked to, or never answers.
class FakeClipboardManager : public SelectionPaster {
public:
  explicit FakeClipboardManager(bool answers) : answers_(answers) {
    own("CLIPBOARD_MANAGER");
    thread_ = std::thread([this] { run(); });
  }
  ~FakeClipboardManager() {
    isOver_ = true;
    thread_.join();
  }
  std::atomic<bool> wasAsked = false;
  std::map<std::string, Property> kept; ///< to be read after `stop`
  void stop() {
    isOver_ = true;
    thread_.join();
    thread_ = std::thread([] {});
  }

private:
  void run() {
    while (!isOver_) {
      xcb_flush(server);
      auto* event = xcb_poll_for_event(server);
      if (event && (event->response_type & 0x7F) == XCB_SELECTION_REQUEST)
        keep(*reinterpret_cast<xcb_selection_request_event_t*>(event));
      std::free(event);
      if (!event)
        ::poll(nullptr, 0, 2);
    }
  }
  void keep(const xcb_selection_request_event_t& event) {
    wasAsked = true;
    if (!answers_)
      return;
    SelectionPaster reader;
    for (const std::string& target : reader.targets())
      if (auto property = reader.paste(target))
        kept[target] = *property;
    xcb_selection_notify_event_t notice{};
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.requestor = event.requestor;
    notice.selection = event.selection;
    notice.target = event.target;
    notice.property = event.property;
    char bytes[32] = {};
    std::memcpy(bytes, &notice, sizeof notice);
    xcb_send_event(server, 0, event.requestor, 0, bytes);
  }

  bool answers_;
  std::atomic<bool> isOver_ = false;
  std::thread thread_;
};

class ClipboardManagerTest : public ClipboardFixture {
protected:
  void holdRestored(const std::vector<OwnedTarget>& contents) {
    SelectionOwner owner(contents);
    save();
    afterCopy([&] { const SelectionOwner application({plain("UTF8_STRING", "selected")}); });
    restore();
  }
};

TEST_F(ClipboardManagerTest, RestoredContentsAreSavedAtTheEnd) {
  FakeClipboardManager manager(true);
  const std::string large(2'000'000, 'x');
  holdRestored({plain("UTF8_STRING", "kept"), plain("image/png", large)});
  pasteboards.reset();
  manager.stop();
  EXPECT_EQ(manager.kept["UTF8_STRING"], textProperty("UTF8_STRING", "kept"));
  EXPECT_TRUE(manager.kept["image/png"] == textProperty("image/png", large));
}

TEST_F(ClipboardManagerTest, AManagerThatNeverAnswersHitsATimeout) {
  const FakeClipboardManager manager(false);
  holdRestored({plain("UTF8_STRING", "kept")});
  EXPECT_LT(timeOf([&] { pasteboards.reset(); }), std::chrono::seconds(6));
}

TEST_F(ClipboardManagerTest, PasswordsAreNotSaved) {
  const FakeClipboardManager manager(true);
  holdRestored({plain("UTF8_STRING", "password"), plain("x-kde-passwordManagerHint", "secret")});
  EXPECT_EQ(paster.paste("x-kde-passwordManagerHint"),
            textProperty("x-kde-passwordManagerHint", "secret"));
  pasteboards.reset();
  EXPECT_FALSE(manager.wasAsked);
}

TEST_F(ClipboardManagerTest, TheClipboardOfAnotherProgramIsNotSaved) {
  const FakeClipboardManager manager(true);
  const SelectionOwner owner({plain("UTF8_STRING", "theirs")});
  captureNothing();
  pasteboards.reset();
  EXPECT_FALSE(manager.wasAsked);
}

} // namespace
} // namespace tavrel
