#include "contract/PreferencesContract.h"

#include "platform/memory/MemoryPreferences.h"

namespace tavrel {
namespace {

struct MemoryPreferencesWorld {
  MemoryPreferences store;
  Preferences& preferences() { return store; }
  void elsewhere(const std::string& domain, const std::string& key, PropertyList value) {
    store.control.store[domain].insert_or_assign(key, std::move(value));
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, PreferencesContract, MemoryPreferencesWorld);

TEST(MemoryPreferences, AFailedWriteStaysPending) {
  MemoryPreferences preferences;
  preferences.control.writesFail = true;
  preferences.setValue("domain", "key", 1);
  EXPECT_FALSE(preferences.synchronize("domain"));
  EXPECT_EQ(preferences.value("domain", "key"), PropertyList(1));
  preferences.control.writesFail = false;
  EXPECT_TRUE(preferences.synchronize("domain"));
  EXPECT_EQ(preferences.control.store["domain"].at("key"), PropertyList(1));
}

} // namespace
} // namespace tavrel
