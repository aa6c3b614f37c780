#include "contract/BundleContract.h"

#import "platform/macos/Conversions.h"
#include "platform/macos/MacBundle.h"
#include "support/TemporaryFolder.h"

namespace tavrel {
namespace {

class MacBundleWorld {
public:
  MacBundleWorld() { std::filesystem::create_directories(folder_.path("en.lproj")); }
  Bundle& bundle() {
    write("Info.plist", information_);
    write("en.lproj/Localizable.strings", texts_);
    if (!bundle_)
      bundle_.emplace(folder_.path());
    return *bundle_;
  }
  void setText(const std::string& key, const std::string& text) {
    texts_.insert_or_assign(key, PropertyList(text));
  }
  void setInformation(const std::string& key, const std::string& text) {
    information_.insert_or_assign(key, PropertyList(text));
  }
  void addResource(const std::string& name, const std::string& type) {
    folder_.write(name + "." + type, "x");
  }

private:
  void write(const std::string& name, const PropertyList::Dictionary& list) const {
    NSDictionary* const written = nsPropertyList(PropertyList(list));
    EXPECT_TRUE([written writeToURL:fileUrl(folder_.path(name)) error:nil]);
  }

  TemporaryFolder folder_;
  PropertyList::Dictionary information_{{"CFBundleDevelopmentRegion", "en"}};
  PropertyList::Dictionary texts_;
  std::optional<MacBundle> bundle_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, BundleContract, MacBundleWorld);

TEST(MacBundle, AFolderThatIsNotThereHoldsNothing) {
  MacBundle bundle("/nonexistent");
  EXPECT_EQ(bundle.informationValue("CFBundleName"), std::nullopt);
  EXPECT_EQ(bundle.resourcePath("Pop", "wav"), std::nullopt);
  EXPECT_EQ(bundle.localizedString("Documents"), "Documents");
}

} // namespace
} // namespace tavrel
