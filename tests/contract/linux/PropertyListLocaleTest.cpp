#include "platform/linux/PropertyListCodec.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>

namespace tavrel {
namespace {

/// A locale that writes one half as 0,5, made for the test; empty where none can be made.
std::string localeWithAComma() {
  const std::string folder = std::filesystem::temp_directory_path() / "comma-locale";
  std::filesystem::create_directories(folder);
  const std::string make = "localedef -i de_DE -f UTF-8 " + folder + "/de_DE.UTF-8 2>/dev/null";
  if (std::system(make.c_str()) != 0)
    return {};
  ::setenv("LOCPATH", folder.c_str(), 1);
  return "de_DE.UTF-8";
}

TEST(PropertyListCodec, RealsAreTheSameInEveryLocale) {
  const std::string locale = localeWithAComma();
  if (locale.empty() || !std::setlocale(LC_ALL, locale.c_str()))
    GTEST_SKIP() << "there is no locale with a comma here";
  for (PropertyListForm form : {PropertyListForm::xml, PropertyListForm::binary}) {
    const auto bytes = encodePropertyList(0.5, form);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(decodePropertyList(*bytes).value, PropertyList(0.5));
  }
  const std::string text = "<plist><real>0.8</real></plist>";
  EXPECT_EQ(decodePropertyList(Bytes(text.begin(), text.end())).value, PropertyList(0.8));
  std::setlocale(LC_ALL, "C");
}

} // namespace
} // namespace tavrel
