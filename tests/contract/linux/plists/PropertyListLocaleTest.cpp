#include "platform/linux/plists/PropertyListCodec.h"

#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

namespace tavrel {
namespace {

/// Makes a locale that writes one half as 0,5; false where none can be made.
bool makeLocaleWithAComma(const TemporaryFolder& folder) {
  const std::string make =
      "localedef -i de_DE -f UTF-8 '" + folder.path("de_DE.UTF-8") + "' 2>/dev/null";
  return std::system(make.c_str()) == 0;
}

TEST(PropertyListCodec, RealsAreTheSameInEveryLocale) {
  const TemporaryFolder folder;
  const EnvironmentVariable place("LOCPATH", folder.path());
  if (!makeLocaleWithAComma(folder) || !std::setlocale(LC_ALL, "de_DE.UTF-8"))
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
