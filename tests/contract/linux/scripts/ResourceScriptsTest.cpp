#include "platform/linux/installation/LinuxBundle.h"
#include "platform/linux/scripts/ResourceScript.h"
#include "platform/linux/scripts/ScriptFile.h"
#include "script/RecordingHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using script::HostFile;
using script::HostList;
using script::HostValue;

/// The scripts that ask applications for their selection, as they were compiled with the program.
class ResourceScripts : public ::testing::Test {
protected:
  std::optional<AppleEventDescriptor> run(const std::string& name) {
    const auto path = bundle.resourcePath(name, "scpt");
    EXPECT_TRUE(path) << name;
    const ScriptFile file = readScriptFile(path.value_or(""));
    EXPECT_EQ(file.kind, ScriptFile::Kind::container) << name;
    const auto loaded = engine.loadContainer(file.container);
    return ResourceScript(engine, std::get<script::ScriptId>(loaded), runs).execute();
  }

  void select(HostList things) {
    host.replies["get"] = [things](const script::HostEvent&) { return HostValue{things}; };
  }

  // ASCII is enough here.
  static std::vector<std::string> texts(const AppleEventDescriptor& list) {
    std::vector<std::string> result;
    for (const Bytes& item : list.items) {
      std::string& text = result.emplace_back(item.begin(), item.end());
      std::erase(text, '\0');
    }
    return result;
  }

  LinuxBundle bundle{TAVREL_BUILT_RESOURCES};
  script::RecordingHost host;
  script::Engine engine{host};
  LongRunningScripts runs;
};

TEST_F(ResourceScripts, AFileManagerGivesOnePathForEachSelectedThing) {
  for (const auto& [name, application] :
       {std::pair{"CopyFinderSelection", "Finder"}, {"CopyPathFinderSelection", "Path Finder"}}) {
    select({HostValue{HostFile{"/docs/a b.txt"}}, HostValue{HostFile{"/docs"}}});
    host.asked.clear();
    const auto result = run(name);
    ASSERT_TRUE(result) << name;
    EXPECT_EQ(result->descriptorType, typeAEList);
    EXPECT_THAT(texts(*result), ::testing::ElementsAre("/docs/a b.txt", "/docs"));
    EXPECT_EQ(host.asked.front().application, application);
  }
}

TEST_F(ResourceScripts, AFileManagerWithNothingSelectedGivesAnEmptyList) {
  select({});
  const auto result = run("CopyFinderSelection");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->descriptorType, typeAEList);
  EXPECT_TRUE(result->items.empty());
}

TEST_F(ResourceScripts, AFileManagerThatDoesNotAnswerGivesNothing) {
  EXPECT_FALSE(run("CopyFinderSelection"));
}

TEST_F(ResourceScripts, TheTextEditorIsMadeToCopyAndGivesNoList) {
  host.replies["keystroke"] = [](const script::HostEvent&) { return HostValue{}; };
  const auto result = run("CopyTextEditSelection");
  ASSERT_TRUE(result);
  EXPECT_NE(result->descriptorType, typeAEList);
  ASSERT_EQ(host.asked.size(), 1U);
  EXPECT_EQ(host.asked[0].application, "System Events");
}

} // namespace
} // namespace tavrel
