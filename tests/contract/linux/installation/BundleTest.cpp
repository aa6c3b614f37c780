#include "contract/BundleContract.h"

#include "platform/linux/installation/LinuxBundle.h"
#include "platform/linux/installation/ResourceFolder.h"
#include "platform/linux/plists/PropertyListCodec.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string textsAsFile(const PropertyList::Dictionary& texts) {
  const auto bytes = encodePropertyList(PropertyList(texts), PropertyListForm::xml);
  return {bytes->begin(), bytes->end()};
}

/// Sets every variable that names languages.
struct Languages {
  explicit Languages(const std::string& list, const std::string& locale = "C")
      : language("LANGUAGE", list), lang("LANG", locale) {}
  EnvironmentVariable language;
  EnvironmentVariable all{"LC_ALL", ""};
  EnvironmentVariable messages{"LC_MESSAGES", ""};
  EnvironmentVariable lang;
};

class LinuxWorld {
public:
  LinuxWorld() {
    std::filesystem::create_directories(folder.path("localizations/de.lproj"));
    std::filesystem::create_directories(folder.path("localizations/en.lproj"));
    std::filesystem::create_directories(folder.path("sounds"));
  }
  Bundle& bundle() {
    if (!bundle_)
      bundle_.emplace(folder.path());
    return *bundle_;
  }
  void setText(const std::string& key, const std::string& text) {
    texts_.insert_or_assign(key, PropertyList(text));
    folder.write("localizations/de.lproj/Localizable.strings", textsAsFile(texts_));
  }
  void setInformation(const std::string& key, const std::string& text) {
    folder.write("Info.plist", textsAsFile({{key, PropertyList(text)}}));
  }
  void addResource(const std::string& name, const std::string& type) {
    folder.write("sounds/" + name + "." + type, "x");
  }

  TemporaryFolder folder;

private:
  Languages languages_{"de"};
  PropertyList::Dictionary texts_;
  std::optional<LinuxBundle> bundle_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, BundleContract, LinuxWorld);

TEST(LinuxBundle, TheUsersLanguagesComeInTheirOrder) {
  const std::vector<std::string> there{"de", "en", "ja", "zh-Hans"};
  EXPECT_THAT(matchingLocalizations({"ja", "fr", "de_AT.UTF-8@euro", "en_GB", "de"}, there),
              ElementsAre("ja", "de", "en"));
  EXPECT_THAT(matchingLocalizations({"fr"}, there), IsEmpty());
  EXPECT_THAT(matchingLocalizations({"C.UTF-8"}, there), ElementsAre("en"));
  EXPECT_THAT(matchingLocalizations({"POSIX"}, there), ElementsAre("en"));
}

TEST(LinuxBundle, ChineseGoesByItsScript) {
  const std::vector<std::string> there{"en", "zh-Hans"};
  EXPECT_THAT(matchingLocalizations({"zh_CN", "en"}, there), ElementsAre("zh-Hans", "en"));
  EXPECT_THAT(matchingLocalizations({"zh_TW", "en"}, there), ElementsAre("en"));
  EXPECT_THAT(matchingLocalizations({"zh_TW"}, {"zh-Hans", "zh-Hant"}), ElementsAre("zh-Hant"));
}

std::vector<std::string> preferredHere() {
  return LinuxBundle(TAVREL_RESOURCES).preferredLocalizations();
}

TEST(LinuxBundle, TheListOfLanguagesGoesBeforeTheLocale) {
  const Languages wanted("ja:de", "zh_CN.UTF-8");
  EXPECT_THAT(preferredHere(), ElementsAre("ja", "de"));
}

TEST(LinuxBundle, TheWholeLocaleGoesBeforeItsParts) {
  const Languages wanted("", "ja_JP.UTF-8");
  EXPECT_THAT(preferredHere(), ElementsAre("ja"));
  const EnvironmentVariable messages("LC_MESSAGES", "zh_CN.UTF-8");
  EXPECT_THAT(preferredHere(), ElementsAre("zh-Hans"));
  const EnvironmentVariable all("LC_ALL", "de_AT.UTF-8");
  EXPECT_THAT(preferredHere(), ElementsAre("de"));
}

TEST(LinuxBundle, WhoWantsNoLanguageThereIsGetsEnglish) {
  const Languages wanted("fr", "fr_FR.UTF-8");
  EXPECT_THAT(preferredHere(), ElementsAre("en"));
}

TEST(LinuxBundle, AMalformedFileOfTextsCostsOneLineAndTheTexts) {
  const Languages wanted("en");
  LinuxWorld world;
  world.folder.write("localizations/de.lproj/Localizable.strings", "<plist><dict><key>a");
  ::testing::internal::CaptureStderr();
  Bundle& bundle = world.bundle();
  EXPECT_EQ(bundle.localizedString("a"), "a");
  EXPECT_EQ(bundle.localizedString("b"), "b");
  const std::string said = ::testing::internal::GetCapturedStderr();
  EXPECT_THAT(said, HasSubstr("de.lproj/Localizable.strings: "));
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}

TEST(LinuxBundle, TextsThatAreNoTextsAreLeftOut) {
  LinuxWorld world;
  world.folder.write("localizations/de.lproj/Localizable.strings",
                     textsAsFile({{"a", PropertyList(std::int64_t{1})}}));
  EXPECT_EQ(world.bundle().localizedString("a"), "a");
}

TEST(LinuxBundle, AFolderThatIsNotThereHoldsNothing) {
  LinuxBundle bundle("/nonexistent");
  EXPECT_THAT(bundle.preferredLocalizations(), IsEmpty());
  EXPECT_EQ(bundle.localizedString("Documents"), "Documents");
  EXPECT_EQ(bundle.informationValue("CFBundleName"), std::nullopt);
  EXPECT_EQ(bundle.resourcePath("Pop", "wav"), std::nullopt);
}

TEST(LinuxBundle, AFolderIsNoResource) {
  LinuxWorld world;
  std::filesystem::create_directories(world.folder.path("sounds/Pop.wav"));
  EXPECT_EQ(world.bundle().resourcePath("Pop", "wav"), std::nullopt);
}

TEST(LinuxBundle, AResourceLiesInTheFolderOfResources) {
  LinuxWorld world;
  world.folder.write("outside.wav", "x");
  LinuxBundle inner(world.folder.path("sounds"));
  EXPECT_EQ(inner.resourcePath("../outside", "wav"), std::nullopt);
  EXPECT_EQ(inner.resourcePath(world.folder.path("outside"), "wav"), std::nullopt);
}

TEST(ResourceFolder, MayBeNamedFromOutside) {
  const EnvironmentVariable named("TAVREL_RESOURCES", "/some/where");
  EXPECT_EQ(resourceFolder(), "/some/where");
}

TEST(ResourceFolder, OfAProgramThatIsNotInstalledIsTheBuilds) {
  const EnvironmentVariable named("TAVREL_RESOURCES", "");
  EXPECT_EQ(resourceFolder(), TAVREL_BUILT_RESOURCES);
}

TEST(ResourceFolder, IsAbsolute) {
  const EnvironmentVariable named("TAVREL_RESOURCES", "resources");
  EXPECT_EQ(resourceFolder(), (std::filesystem::current_path() / "resources").string());
}

} // namespace
} // namespace tavrel
