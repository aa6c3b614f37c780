#pragma once

#include "platform/Web.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// Every desktop's web. `World` has `web()`, and `publish(list)`, which answers the address.
template <class World> class WebContract : public ::testing::Test {
protected:
  std::optional<PropertyList> published(const PropertyList& list) {
    return world.web().dictionaryAt(world.publish(list));
  }
  World world;
};

TYPED_TEST_SUITE_P(WebContract);

TYPED_TEST_P(WebContract, ADictionaryIsFetchedWhole) {
  const PropertyList entry(PropertyList::Dictionary{{"version", "2.5"}, {"url", "http://x/ü"}});
  const PropertyList list(PropertyList::Dictionary{{"entry", entry}, {"number", 3}});
  EXPECT_EQ(this->published(list), list);
}

TYPED_TEST_P(WebContract, AnEmptyDictionaryIsOne) {
  const PropertyList list{PropertyList::Dictionary{}};
  EXPECT_EQ(this->published(list), list);
}

TYPED_TEST_P(WebContract, AnotherListIsNothing) {
  EXPECT_FALSE(this->published(PropertyList(PropertyList::Array{PropertyList("a")})));
  EXPECT_FALSE(this->published(PropertyList("text")));
}

TYPED_TEST_P(WebContract, WhatIsNoWebAddressHasNothing) {
  for (const char* junk : {"", " ", "http://", "http:///list", "list.plist", "/etc/hosts",
                           "file:///etc/hosts", "data:,x", "qrc:/x", "UPDATE_PLIST_URL",
                           "http://a b/", "ftp://localhost/x", "http://[::1", "http://x:99999/"})
    EXPECT_FALSE(this->world.web().dictionaryAt(junk)) << junk;
}

TYPED_TEST_P(WebContract, AddressesAreFetchedAgain) {
  const PropertyList list(PropertyList::Dictionary{{"a", "b"}});
  const std::string address = this->world.publish(list);
  EXPECT_EQ(this->world.web().dictionaryAt(address), list);
  EXPECT_EQ(this->world.web().dictionaryAt(address), list);
}

REGISTER_TYPED_TEST_SUITE_P(WebContract, ADictionaryIsFetchedWhole, AnEmptyDictionaryIsOne,
                            AnotherListIsNothing, WhatIsNoWebAddressHasNothing,
                            AddressesAreFetchedAgain);

} // namespace tavrel
