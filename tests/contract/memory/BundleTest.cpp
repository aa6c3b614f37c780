#include "contract/BundleContract.h"

#include "platform/memory/MemoryBundle.h"

namespace tavrel {
namespace {

class MemoryBundleWorld {
public:
  Bundle& bundle() { return bundle_; }
  void setText(const std::string& key, const std::string& text) {
    bundle_.control.strings[key] = text;
  }
  void setInformation(const std::string& key, const std::string& text) {
    bundle_.control.information[key] = text;
  }
  void addResource(const std::string& name, const std::string& type) {
    const std::string file = name + "." + type;
    bundle_.control.resourcePaths[file] = "/resources/" + file;
  }

private:
  MemoryBundle bundle_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, BundleContract, MemoryBundleWorld);

TEST(MemoryBundle, PrefersWhatItsControlSays) {
  MemoryBundle bundle;
  EXPECT_TRUE(bundle.preferredLocalizations().empty());
  bundle.control.localizations = {"de", "en"};
  EXPECT_THAT(bundle.preferredLocalizations(), ::testing::ElementsAre("de", "en"));
}

} // namespace
} // namespace tavrel
