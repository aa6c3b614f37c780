#include "contract/ScriptsContract.h"

#include "platform/memory/MemoryScripts.h"

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

OSAError countOn(MemoryScripts::Properties& properties) {
  const std::int64_t count = properties.at("count").integer().value_or(0);
  properties.insert_or_assign("count", count + 1);
  return osaError::none;
}

OSAError countOnAndFail(MemoryScripts::Properties& properties) {
  countOn(properties);
  return osaError::scriptError;
}

PropertyList errorOf(int number) {
  return PropertyList::Dictionary{{"NSAppleScriptErrorNumber", number},
                                  {"NSAppleScriptErrorMessage", "It failed."}};
}

class MemoryScriptsWorld {
public:
  Scripts& scripts() { return scripts_; }
  std::string counter() { return add("/counter.scpt", {.body = countOn}); }
  std::string silent() { return add("/silent.scpt", {.hasResult = false}); }
  std::string failing() { return add("/failing.scpt", {.body = countOnAndFail}); }
  std::string unreadable() { return add("/unreadable.scpt", {.loadCode = -1758}); }
  std::string readOnly() { return add("/read-only.scpt", {.body = countOn, .storable = false}); }
  std::string unwritable() { return add("/unwritable.scpt", {.storeCode = -61}); }
  std::string missing() { return "/missing.scpt"; }
  std::string listing() {
    return addResult(
        "/listing.scpt",
        AppleEventDescriptor{typeAEList, {unitsOf("/docs/a.txt"), unitsOf("/größe 😀")}});
  }
  std::string listingNothing() {
    return addResult("/nothing.scpt", AppleEventDescriptor{typeAEList, {}});
  }
  std::string telling() { return addResult("/telling.scpt", AppleEventDescriptor{0x75747874, {}}); }
  std::string stopping() { return addResult("/stopping.scpt", std::nullopt); }
  std::int64_t countIn(const std::string& path) {
    return scripts_.control.files.at(path).properties.at("count").integer().value_or(-1);
  }

  std::string goodSource() { return "return 1"; }
  std::string failingSource(int number) { return addSource("error", errorOf(number)); }
  std::string brokenSource() { return addSource("tell", errorOf(-2741)); }

private:
  std::string add(const std::string& path, MemoryScripts::File file) {
    file.properties = {{"count", 0}};
    scripts_.control.files[path] = std::move(file);
    return path;
  }
  std::string addResult(const std::string& path,
                        const std::optional<AppleEventDescriptor>& result) {
    scripts_.control.resultScripts[path] = [result] { return result; };
    return path;
  }
  static Bytes unitsOf(const std::string& text) {
    const std::u16string units = utf16FromUtf8(text);
    const auto* raw = reinterpret_cast<const std::uint8_t*>(units.data());
    return {raw, raw + units.size() * sizeof(char16_t)};
  }
  std::string addSource(const std::string& text, const PropertyList& error) {
    scripts_.control.sourceErrors.insert_or_assign(text, error);
    return text;
  }

  MemoryScripts scripts_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ScriptsContract, MemoryScriptsWorld);

class MemoryScriptsTest : public ::testing::Test {
protected:
  MemoryScripts scripts;
  MemoryScripts::Control& control = scripts.control;
};

TEST_F(MemoryScriptsTest, WritesDownEveryCallAndWhatLives) {
  control.files["/a.scpt"] = {};
  const auto component = scripts.openDefaultComponent(kOSAComponentType, kAppleScriptSubtype);
  const OSAID script = scripts.load(component, "/a.scpt").script;
  const OSAID result = scripts.execute(component, script).result;
  EXPECT_THAT(control.live, ElementsAre(script, result));
  scripts.dispose(component, result);
  scripts.store(component, script, "/b.scpt");
  scripts.dispose(component, script);
  EXPECT_THAT(control.live, ElementsAre());
  EXPECT_THAT(control.ran, ElementsAre("/a.scpt"));
  EXPECT_THAT(control.log, ElementsAre("load /a.scpt = 1", "execute 1 = 2", "dispose 2",
                                       "store 1 /b.scpt", "dispose 1"));
}

TEST_F(MemoryScriptsTest, MayHaveNoComponent) {
  control.componentOpens = false;
  EXPECT_EQ(scripts.openDefaultComponent(kOSAComponentType, kAppleScriptSubtype), 0U);
  EXPECT_EQ(control.componentsOpened, 0U);
}

TEST_F(MemoryScriptsTest, MakesNoScriptOfAnUnusableSource) {
  control.unusableSources = {"nothing"};
  EXPECT_FALSE(scripts.runSource("nothing"));
  EXPECT_THAT(control.sources, ElementsAre());
}

TEST_F(MemoryScriptsTest, TellsWhoWroteASourceInTheMiddleOfItsRun) {
  std::size_t runs = 0;
  control.sourceRan = [&](const std::string&) { runs = control.sources.size(); };
  EXPECT_TRUE(scripts.runSource("beep"));
  EXPECT_EQ(runs, 1U);
  EXPECT_THAT(control.sources, ElementsAre(MemoryScripts::Source{"beep", ScriptOrigin::User}));
}

} // namespace
} // namespace tavrel
