#include "menu/ItemOffer.h"

#include "controller/HostContext.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

PropertyList invokedBy(PropertyList::Array applications) {
  return record("url", "A", {{TVR_MenuItemInvokers, std::move(applications)}});
}

HostContext over(const std::string& name) {
  return {.hostName = name};
}

/// An application with a name that it shows, and other words for it.
HostContext overOneOf(const std::string& name, const std::vector<std::string>& otherNames) {
  HostContext host = over(name);
  host.application.name = name;
  host.application.otherNames = otherNames;
  return host;
}

PropertyList forKinds(PropertyList::Array kinds) {
  return record("url", "A", {{TVR_MenuItemSelectionTypes, std::move(kinds)}});
}

class ItemOffer : public CoreTest {
protected:
  static void hold(const std::vector<std::string>& types) {
    privatePasteboard().declareTypes(types);
  }
};

TEST_F(ItemOffer, ARecordThatNamesNoApplicationIsOfferedInAll) {
  EXPECT_TRUE(isOfferedIn(over("Finder"), record("url", "A")));
  EXPECT_TRUE(isOfferedIn(over("Finder"), invokedBy({})));
  EXPECT_TRUE(isOfferedIn(over(""), invokedBy({})));
}

TEST_F(ItemOffer, APathAndANameOfAnApplicationAreTheSame) {
  for (const char* invoker :
       {"TextEdit", "TextEdit.app", "/Applications/TextEdit.app", "/Applications/TextEdit.app/"}) {
    EXPECT_TRUE(isOfferedIn(over("TextEdit"), invokedBy({invoker}))) << invoker;
    EXPECT_FALSE(isOfferedIn(over("Finder"), invokedBy({invoker}))) << invoker;
  }
}

TEST_F(ItemOffer, TheNameOfAnApplicationIsTakenExactly) {
  EXPECT_FALSE(isOfferedIn(over("textedit"), invokedBy({"TextEdit"})));
  EXPECT_FALSE(isOfferedIn(over("TextEdit "), invokedBy({"TextEdit"})));
  EXPECT_FALSE(isOfferedIn(over(""), invokedBy({"TextEdit"})));
}

TEST_F(ItemOffer, AnyWordThatTheDesktopHasForTheOneInFrontWillDo) {
  const HostContext editor = overOneOf("Editor", {"org.example.editor", "/usr/bin/edit"});
  for (const char* invoker : {"Editor", "org.example.editor", "/usr/bin/edit", "/apps/Editor.app"})
    EXPECT_TRUE(isOfferedIn(editor, invokedBy({invoker}))) << invoker;
  for (const char* invoker : {"org.example", "edit", "editor"})
    EXPECT_FALSE(isOfferedIn(editor, invokedBy({invoker}))) << invoker;
}

TEST_F(ItemOffer, ANameThatTheDesktopTellsKeepsWhatFollowsItsFullStop) {
  EXPECT_TRUE(isOfferedIn(overOneOf("Größe 2.0", {"Größe 2.0"}), invokedBy({"Größe 2.0"})));
  EXPECT_TRUE(isOfferedIn(overOneOf("TCP/IP", {"TCP/IP"}), invokedBy({"TCP/IP"})));
  EXPECT_FALSE(isOfferedIn(overOneOf("Größe 2.0", {"Größe 2.0"}), invokedBy({"Größe 2.1"})));
}

TEST_F(ItemOffer, AnyOfTheApplicationsWillDo) {
  EXPECT_TRUE(isOfferedIn(over("Mail"), invokedBy({"Finder", 7, "/Applications/Mail.app"})));
  EXPECT_FALSE(isOfferedIn(over("Mail"), invokedBy({7})));
}

TEST_F(ItemOffer, ARecordThatNamesNoKindIsOfferedWhateverIsSelected) {
  EXPECT_TRUE(isOfferedForSelection(record("url", "A")));
  EXPECT_TRUE(isOfferedForSelection(forKinds({})));
  EXPECT_TRUE(isOfferedForSelection(record("url", "A", {{TVR_MenuItemSelectionTypes, "no list"}})));
}

TEST_F(ItemOffer, EachKindStandsForItsTypes) {
  const std::vector<std::pair<const char*, std::vector<std::string>>> kinds{
      {"text",
       {"NSStringPboardType", "NSRTFPboardType", "NSRTFDPboardType", "NSHTMLPboardType",
        "NSPDFPboardType"}},
      {"file/folder", {"NSFilenamesPboardType", "PathFinderFilenamesPboardType"}},
      {"url", {"NSURLPboardType"}},
      {"image", {"NSTIFFPboardType", "NSPICTPboardType"}}};
  for (const auto& [held, types] : kinds)
    for (const std::string& type : types) {
      hold({"another", type});
      for (const auto& [asked, ignored] : kinds)
        EXPECT_EQ(isOfferedForSelection(forKinds({asked})), asked == held) << asked << " " << type;
    }
}

TEST_F(ItemOffer, AnyOfTheKindsWillDo) {
  hold({pasteboardType::url});
  EXPECT_TRUE(isOfferedForSelection(forKinds({"image", 7, "url"})));
  EXPECT_FALSE(isOfferedForSelection(forKinds({"image", "text"})));
}

TEST_F(ItemOffer, EmptyAndUnknownKindsAloneAreNeverOffered) {
  for (const std::vector<std::string>& types :
       {std::vector<std::string>{}, {pasteboardType::string}, {pasteboardType::filenames}}) {
    hold(types);
    EXPECT_FALSE(isOfferedForSelection(forKinds({"empty"})));
    EXPECT_FALSE(isOfferedForSelection(forKinds({"Text", "files", 1})));
  }
}

TEST_F(ItemOffer, EmptyAddsNothingToAnotherKind) {
  hold({pasteboardType::string});
  EXPECT_TRUE(isOfferedForSelection(forKinds({"text", "empty"})));
  hold({pasteboardType::url});
  EXPECT_FALSE(isOfferedForSelection(forKinds({"text", "empty"})));
}

TEST_F(ItemOffer, AnEmptyCaptureCountsAsText) {
  hold({pasteboardType::string});
  privatePasteboard().setString("", pasteboardType::string);
  EXPECT_TRUE(isOfferedForSelection(forKinds({"text"})));
}

} // namespace
} // namespace tavrel
