#include "platform/linux/installation/LinuxBundle.h"
#include "platform/linux/plists/PropertyListFile.h"
#include "support/EnvironmentVariable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tavrel {
namespace {

using ::testing::UnorderedElementsAre;

const std::string resources = TAVREL_RESOURCES;

PropertyList::Dictionary textsOf(const std::string& language) {
  const PropertyListFile file =
      readPropertyListFile(resources + "/localizations/" + language + ".lproj/Localizable.strings");
  EXPECT_EQ(file.problem, "") << language;
  EXPECT_FALSE(file.values.empty()) << language;
  return file.values;
}

std::vector<std::string> keysOf(const PropertyList::Dictionary& texts) {
  std::vector<std::string> keys;
  for (const auto& [key, text] : texts)
    keys.push_back(key);
  return keys;
}

std::vector<std::string> languages() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(resources + "/localizations"))
    names.push_back(entry.path().stem());
  return names;
}

TEST(Resources, SpeakFourLanguages) {
  EXPECT_THAT(languages(), UnorderedElementsAre("en", "de", "ja", "zh-Hans"));
}

TEST(Resources, EveryLanguageHasTheTextsOfEnglish) {
  for (const std::string& language : languages())
    EXPECT_THAT(keysOf(textsOf(language)), ::testing::ContainerEq(keysOf(textsOf("en"))))
        << language;
}

TEST(Resources, NoTextIsEmpty) {
  for (const std::string& language : languages())
    for (const auto& [key, value] : textsOf(language)) {
      ASSERT_NE(value.string(), nullptr) << language << ": " << key;
      EXPECT_FALSE(value.string()->empty()) << language << ": " << key;
    }
}

TEST(Resources, TellWhatTheProgramIs) {
  LinuxBundle bundle(resources);
  EXPECT_EQ(bundle.informationValue("CFBundleIdentifier"), "qorvane.tavrel.Tavrel");
  EXPECT_EQ(bundle.informationValue("CFBundleName"), "Tavrel");
  EXPECT_EQ(bundle.informationValue("CFBundleShortVersionString"), TAVREL_VERSION);
  EXPECT_THAT(bundle.informationValue("CFBundleGetInfoString").value_or(""),
              ::testing::StartsWith("Tavrel " TAVREL_VERSION));
}

} // namespace
} // namespace tavrel
