#include "contract/PreferencesContract.h"

#include "platform/macos/MacPreferences.h"

namespace tavrel {
namespace {

class MacPreferencesWorld {
public:
  MacPreferencesWorld() { clear(); }
  ~MacPreferencesWorld() { clear(); }
  MacPreferencesWorld(const MacPreferencesWorld&) = delete;
  MacPreferencesWorld& operator=(const MacPreferencesWorld&) = delete;

  Preferences& preferences() { return adapter_; }
  void elsewhere(const std::string& domain, const std::string& key, const PropertyList& value) {
    MacPreferences other;
    other.setValue(domain, key, value);
    EXPECT_TRUE(other.synchronize(domain));
  }

private:
  static void clear() {
    MacPreferences other;
    for (const char* domain : {"qorvane.test", "qorvane.other"})
      other.removePersistentDomain(domain);
  }

  MacPreferences adapter_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, PreferencesContract, MacPreferencesWorld);

TEST(MacPreferences, ANameThatIsAPathIsNoDomain) {
  MacPreferences preferences;
  for (const std::string& domain : {std::string(), std::string("/tmp/x"), std::string("a\0b", 3)}) {
    EXPECT_FALSE(preferences.persistentDomain(domain));
    preferences.setValue(domain, "key", 1);
    EXPECT_EQ(preferences.value(domain, "key"), PropertyList(1));
    EXPECT_FALSE(preferences.synchronize(domain));
  }
}

} // namespace
} // namespace tavrel
