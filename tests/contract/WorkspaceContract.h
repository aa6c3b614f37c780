#pragma once

#include "base/Url.h"
#include "platform/Workspace.h"

#include <gtest/gtest.h>

namespace tavrel {

/// What opening means on every desktop. A World has:
///   Workspace& workspace()
///   std::string document()           a file that an application opens
///   std::string orphan()             a file that nothing opens
///   std::string missing()            a path where nothing is
///   std::string url()                a URL that an application opens
///   std::string orphanUrl()          a URL that nothing opens
///   std::string application()        the path of an application that takes any documents
///   std::string brokenApplication()  the path of an application that cannot be started
///   std::string missingApplication() the path of none
///   bool wasHanded(urls)             whether an application gets just these at one start
/// Asking for something may arrange the world for it, so a test asks for one thing.
template <typename World> class WorkspaceContract : public ::testing::Test {
protected:
  std::int32_t openWith(const std::string& application, const std::vector<std::string>& urls) {
    return world.workspace().openUrlsWithApplication(
        {fileUrlOfPath(application, PathIs::file), urls});
  }
  World world;
};

TYPED_TEST_SUITE_P(WorkspaceContract);

TYPED_TEST_P(WorkspaceContract, AFileGoesToItsApplication) {
  const std::string document = this->world.document();
  EXPECT_TRUE(this->world.workspace().openFile(document));
  EXPECT_TRUE(this->world.wasHanded({fileUrlOfPath(document, PathIs::file)}));
}

TYPED_TEST_P(WorkspaceContract, AFileThatNothingOpensIsRefused) {
  EXPECT_FALSE(this->world.workspace().openFile(this->world.orphan()));
}

TYPED_TEST_P(WorkspaceContract, AMissingFileIsRefused) {
  EXPECT_FALSE(this->world.workspace().openFile(this->world.missing()));
}

TYPED_TEST_P(WorkspaceContract, AUrlGoesToItsApplication) {
  const std::string url = this->world.url();
  EXPECT_TRUE(this->world.workspace().openUrl(url));
  EXPECT_TRUE(this->world.wasHanded({url}));
}

TYPED_TEST_P(WorkspaceContract, AUrlThatNothingOpensIsRefused) {
  EXPECT_FALSE(this->world.workspace().openUrl(this->world.orphanUrl()));
}

TYPED_TEST_P(WorkspaceContract, TextThatIsNoUrlIsRefused) {
  for (const char* text : {"", "no url", "/plain/path", "http://bad host/", "%ZZ:x"})
    EXPECT_FALSE(this->world.workspace().openUrl(text)) << text;
}

TYPED_TEST_P(WorkspaceContract, DocumentsGoTogetherAndInOrderToTheNamedApplication) {
  const std::vector<std::string> urls = {"file:///b", "http://a.example/", "file:///a%20c"};
  EXPECT_EQ(this->openWith(this->world.application(), urls), 0);
  EXPECT_TRUE(this->world.wasHanded(urls));
}

TYPED_TEST_P(WorkspaceContract, AnApplicationIsStartedWithoutDocuments) {
  EXPECT_EQ(this->openWith(this->world.application(), {}), 0);
  EXPECT_TRUE(this->world.wasHanded({}));
}

TYPED_TEST_P(WorkspaceContract, AMissingApplicationIsTold) {
  EXPECT_EQ(this->openWith(this->world.missingApplication(), {"file:///a"}), -10814);
}

TYPED_TEST_P(WorkspaceContract, AnApplicationThatCannotBeStartedIsTold) {
  EXPECT_EQ(this->openWith(this->world.brokenApplication(), {"file:///a"}), -10827);
}

TYPED_TEST_P(WorkspaceContract, TheSystemIsNewEnoughForBookmarks) {
  EXPECT_GT(this->world.workspace().systemVersion(), 0x105F);
}

REGISTER_TYPED_TEST_SUITE_P(WorkspaceContract, AFileGoesToItsApplication,
                            AFileThatNothingOpensIsRefused, AMissingFileIsRefused,
                            AUrlGoesToItsApplication, AUrlThatNothingOpensIsRefused,
                            TextThatIsNoUrlIsRefused,
                            DocumentsGoTogetherAndInOrderToTheNamedApplication,
                            AnApplicationIsStartedWithoutDocuments, AMissingApplicationIsTold,
                            AnApplicationThatCannotBeStartedIsTold,
                            TheSystemIsNewEnoughForBookmarks);

} // namespace tavrel
