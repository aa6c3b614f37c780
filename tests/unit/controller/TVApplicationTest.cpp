#include "support/CoreTest.h"

namespace tavrel {
namespace {

using Application = ControllerTest;

Event hotKeyReleased(std::uint64_t reference) {
  return {EventType::systemDefined, hotKeyReleasedSubtype, reference};
}

TEST_F(Application, AReleasedHotKeyReachesItsHandlerAndIsStillPassedOn) {
  std::vector<std::uint64_t> performed;
  application.setHotKeyHandler([&](std::uint64_t reference) {
    EXPECT_TRUE(base.events.empty()) << "the handler comes first";
    performed.push_back(reference);
    return true;
  });
  application.sendEvent(hotKeyReleased(42));
  EXPECT_THAT(performed, ::testing::ElementsAre(42U));
  ASSERT_EQ(base.events.size(), 1U);
  EXPECT_EQ(base.events[0].data1, 42U);
}

TEST_F(Application, OtherEventsAreOnlyPassedOn) {
  bool performed = false;
  application.setHotKeyHandler([&](std::uint64_t) { return performed = true; });
  application.sendEvent({EventType::systemDefined, 8, 42});
  application.sendEvent({static_cast<EventType>(10), hotKeyReleasedSubtype, 42});
  EXPECT_FALSE(performed);
  EXPECT_EQ(base.events.size(), 2U);
}

TEST_F(Application, TheHostNameIsWhatWasSetLast) {
  EXPECT_EQ(application.hostAppName(), std::nullopt);
  application.setHostName("Finder");
  EXPECT_EQ(application.hostAppName(), "Finder");
  application.setHostName(std::nullopt);
  EXPECT_EQ(application.hostAppName(), std::nullopt);
}

TEST_F(Application, WithoutLocalizationsItSpeaksEnglish) {
  EXPECT_EQ(application.currentLocalization(), "English");
  desktop.bundle.control.localizations = {"de", "en"};
  EXPECT_EQ(application.currentLocalization(), "de");
}

TEST_F(Application, TheLongVersionIsReadAnewEachTime) {
  EXPECT_EQ(application.longVersion(), std::nullopt);
  desktop.bundle.control.information["CFBundleGetInfoString"] = "Tavrel 1";
  EXPECT_EQ(application.longVersion(), "Tavrel 1");
  desktop.bundle.control.information["CFBundleGetInfoString"] = "Tavrel 2";
  EXPECT_EQ(application.longVersion(), "Tavrel 2");
}

TEST_F(Application, AnEmptyPasteboardIsAnUnknownObject) {
  EXPECT_EQ(application.contextObject(), PropertyList("Unknown Object"));
}

TEST_F(Application, TheContextObjectIsTheFirstKindThatThePasteboardHolds) {
  Pasteboard& selection = privatePasteboard();
  selection.declareTypes({pasteboardType::string, pasteboardType::tiff, pasteboardType::url,
                          pasteboardType::rtf, pasteboardType::rtfd, pasteboardType::filenames,
                          pasteboardType::pict});
  const auto answer = [&] { return application.contextObject(); };
  selection.setData({1}, pasteboardType::pict);
  EXPECT_EQ(answer(), PropertyList(Bytes{1}));
  selection.setData({2}, pasteboardType::tiff);
  EXPECT_EQ(answer(), PropertyList(Bytes{2}));
  selection.setString("plain", pasteboardType::string);
  EXPECT_EQ(answer(), PropertyList("plain"));
  desktop.richText.control.rtf[{3}] = "rich";
  selection.setData({3}, pasteboardType::rtf);
  EXPECT_EQ(answer(), PropertyList("rich"));
  desktop.richText.control.rtfd[{4}] = "rich with pictures";
  selection.setData({4}, pasteboardType::rtfd);
  EXPECT_EQ(answer(), PropertyList("rich with pictures"));
  selection.setString("http://x.com", pasteboardType::url);
  EXPECT_EQ(answer(), PropertyList("http://x.com"));
  selection.setPropertyList(PropertyList::Array{"/a"}, pasteboardType::filenames);
  EXPECT_EQ(answer(), PropertyList(PropertyList::Array{"/a"}));
}

TEST_F(Application, PathsOfTheOtherFileManagerCountToo) {
  capture({"/a", "/b"}, pasteboardType::pathFinderFilenames);
  EXPECT_EQ(application.contextObject(), PropertyList(PropertyList::Array{"/a", "/b"}));
}

TEST_F(Application, RichTextThatCannotBeReadAnswersNothing) {
  privatePasteboard().declareTypes({pasteboardType::rtf});
  privatePasteboard().setData({9}, pasteboardType::rtf);
  EXPECT_EQ(application.contextObject(), std::nullopt);
}

TEST_F(Application, AnAssignedContextObjectIsNeverAnswered) {
  application.setContextObject("mine");
  EXPECT_EQ(application.contextObject(), PropertyList("Unknown Object"));
}

} // namespace
} // namespace tavrel
