#include "support/CoreTest.h"

#include "exec/ScriptRunner.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Source = MemoryScripts::Source;

constexpr OSAError diskFull = -34;

OSAError countOn(MemoryScripts::Properties& properties) {
  const std::int64_t count = properties.at("count").integer().value_or(0);
  properties.insert_or_assign("count", count + 1);
  return osaError::none;
}

OSAError countOnAndFail(MemoryScripts::Properties& properties) {
  countOn(properties);
  return osaError::scriptError;
}

class ScriptRunner : public CoreTest {
protected:
  ScriptRunner() { control.files["/count.scpt"] = {.properties = {{"count", 0}}, .body = countOn}; }

  std::int64_t count() { return file.properties.at("count").integer().value_or(-1); }

  MemoryScripts::Control& control = desktop.scripts.control;
  MemoryScripts::File& file = control.files["/count.scpt"];
  std::vector<std::string>& logged = desktop.log.control.lines;
};

TEST_F(ScriptRunner, APropertyLastsFromRunToRun) {
  execScript("/count.scpt");
  EXPECT_EQ(count(), 1);
  execScript("/count.scpt");
  EXPECT_EQ(count(), 2);
}

TEST_F(ScriptRunner, ARunLoadsExecutesStoresAndDisposesInThatOrder) {
  execScript("/count.scpt");
  EXPECT_THAT(control.log, ElementsAre("load /count.scpt = 1", "execute 1 = 2", "dispose 2",
                                       "store 1 /count.scpt", "dispose 1"));
}

TEST_F(ScriptRunner, AScriptThatRaisesAnErrorKeepsItsOldProperties) {
  file.body = countOnAndFail;
  execScript("/count.scpt");
  EXPECT_EQ(count(), 0);
  EXPECT_THAT(control.log, ElementsAre("load /count.scpt = 1", "execute 1 = 0", "dispose 1"));
}

TEST_F(ScriptRunner, AScriptThatReturnsNothingIsStoredAsWell) {
  file.hasResult = false;
  execScript("/count.scpt");
  EXPECT_EQ(count(), 1);
  EXPECT_THAT(control.live, IsEmpty());
}

TEST_F(ScriptRunner, AScriptThatMayNotBeStoredRunsAndIsLeftAlone) {
  file.storable = false;
  execScript("/count.scpt");
  EXPECT_THAT(control.ran, ElementsAre("/count.scpt"));
  EXPECT_EQ(count(), 0);
  EXPECT_THAT(control.log,
              ElementsAre("load /count.scpt = 1", "execute 1 = 2", "dispose 2", "dispose 1"));
}

TEST_F(ScriptRunner, AFailedStoreIsSilentAndTheScriptIsDisposedOf) {
  file.storeCode = diskFull;
  execScript("/count.scpt");
  EXPECT_THAT(control.live, IsEmpty());
  EXPECT_THAT(logged, IsEmpty());
}

TEST_F(ScriptRunner, AScriptThatCannotBeLoadedLeavesNothingBehind) {
  file.loadCode = -1758;
  execScript("/count.scpt");
  execScript("/gone.scpt");
  EXPECT_THAT(control.ran, IsEmpty());
  EXPECT_THAT(control.log, IsEmpty());
  EXPECT_FALSE(gExecutingScript);
}

TEST_F(ScriptRunner, EveryFailureOfACompiledScriptIsSilent) {
  file.body = countOnAndFail;
  execScript("/count.scpt");
  execScript("/gone.scpt");
  EXPECT_THAT(logged, IsEmpty());
}

TEST_F(ScriptRunner, TwoScriptsShareOneComponentInstance) {
  control.files["/other.scpt"] = {};
  execScript("/count.scpt");
  execScript("/other.scpt");
  EXPECT_THAT(control.ran, ElementsAre("/count.scpt", "/other.scpt"));
  EXPECT_EQ(control.componentsOpened, 1U);
}

TEST_F(ScriptRunner, AComponentThatDidNotOpenIsAskedForAgain) {
  control.componentOpens = false;
  execScript("/count.scpt");
  EXPECT_THAT(control.ran, IsEmpty());
  control.componentOpens = true;
  execScript("/count.scpt");
  EXPECT_THAT(control.ran, ElementsAre("/count.scpt"));
}

TEST_F(ScriptRunner, TheFlagIsUpExactlyWhileACompiledScriptRuns) {
  bool during = false;
  file.body = [&](MemoryScripts::Properties&) {
    during = gExecutingScript;
    return osaError::scriptError;
  };
  execScript("/count.scpt");
  EXPECT_TRUE(during);
  EXPECT_FALSE(gExecutingScript);
}

TEST_F(ScriptRunner, TheFlagStaysUpWhenAScriptInsideTheScriptHasEnded) {
  bool afterInner = false;
  control.files["/inner.scpt"] = {};
  file.body = [&](MemoryScripts::Properties&) {
    execScript("/inner.scpt");
    afterInner = gExecutingScript;
    return osaError::none;
  };
  execScript("/count.scpt");
  EXPECT_TRUE(afterInner);
  EXPECT_FALSE(gExecutingScript);
}

TEST_F(ScriptRunner, AScriptInsideAScriptIsLoadedStoredAndDisposedOfByItself) {
  control.files["/inner.scpt"] = {};
  file.body = [&](MemoryScripts::Properties& properties) {
    execScript("/inner.scpt");
    return countOn(properties);
  };
  execScript("/count.scpt");
  EXPECT_THAT(control.log,
              ElementsAre("load /count.scpt = 1", "load /inner.scpt = 2", "execute 2 = 3",
                          "dispose 3", "store 2 /inner.scpt", "dispose 2", "execute 1 = 4",
                          "dispose 4", "store 1 /count.scpt", "dispose 1"));
  EXPECT_EQ(control.componentsOpened, 1U);
  EXPECT_EQ(count(), 1);
}

TEST_F(ScriptRunner, ASourceDoesNotPutTheFlagUp) {
  bool during = true;
  control.sourceRan = [&](const std::string&) { during = gExecutingScript; };
  execScriptSource("beep");
  EXPECT_FALSE(during);
}

TEST_F(ScriptRunner, ASourceRunsWithTheNameOfItsAuthor) {
  execScriptSource("beep");
  execOwnSource({"beep %@", {"2"}});
  EXPECT_THAT(control.sources, ElementsAre(Source{"beep", ScriptOrigin::User},
                                           Source{"beep 2", ScriptOrigin::Application}));
  EXPECT_THAT(logged, IsEmpty());
}

TEST_F(ScriptRunner, AFailingSourceIsOneEntryInTheLog) {
  control.sourceErrors.insert(
      {"beep", PropertyList::Dictionary{{"NSAppleScriptErrorNumber", -1728}}});
  execScriptSource("beep");
  EXPECT_THAT(
      logged,
      ElementsAre("execScriptSource error {\n    NSAppleScriptErrorNumber = \"-1728\";\n}"));
}

TEST_F(ScriptRunner, ASourceThatMakesNoScriptIsSilent) {
  control.unusableSources = {"beep"};
  execScriptSource("beep");
  EXPECT_THAT(logged, IsEmpty());
}

TEST_F(ScriptRunner, AnApplicationIsActivatedByItsNameAndErrorsAreSilent) {
  const std::string source = "tell application \"Text Edit\" to activate";
  control.sourceErrors.insert({source, PropertyList::Dictionary{}});
  activateApplication("Text Edit");
  EXPECT_THAT(control.sources, ElementsAre(Source{source, ScriptOrigin::Application}));
  EXPECT_THAT(logged, IsEmpty());
}

TEST_F(ScriptRunner, ANameStandsInASourceAsItIs) {
  activateApplication("a\\b \"c\"");
  askToQuit("/apps/a\\b \"c\".desktop");
  const std::string told = R"(tell application "a\b "c"" to )";
  EXPECT_THAT(control.sources, ElementsAre(Source{told + "activate", ScriptOrigin::Application},
                                           Source{told + "quit", ScriptOrigin::Application}));
}

TEST_F(ScriptRunner, ThePreferencePaneIsRevealed) {
  launchTavrelPref();
  EXPECT_THAT(control.sources,
              ElementsAre(Source{"tell application \"System Preferences\"\nactivate\n"
                                 "reveal pane \"Tavrel\"\n end tell",
                                 ScriptOrigin::Application}));
}

class CompiledScript : public ScriptRunner {
protected:
  TVAppleScript script{"/count.scpt"};
};

TEST_F(CompiledScript, MakingOneOpensTheComponentAndReadsNothing) {
  EXPECT_EQ(control.componentsOpened, 1U);
  EXPECT_NE(sComponent, 0U);
  EXPECT_EQ(script.filePath, "/count.scpt");
  EXPECT_EQ(script._scriptID, 0U);
  EXPECT_FALSE(script._dirty);
  EXPECT_THAT(control.log, IsEmpty());
}

TEST_F(CompiledScript, TheCodesOfLoadAndRunAreAnswered) {
  EXPECT_EQ(script.executeAndReturnError(), osaError::none);
  file.body = countOnAndFail;
  EXPECT_EQ(script.executeAndReturnError(), osaError::scriptError);
  control.files.clear();
  EXPECT_EQ(script.executeAndReturnError(), osaError::fileNotFound);
}

TEST_F(CompiledScript, AfterARunNothingIsLoadedOrUnsaved) {
  file.storeCode = diskFull;
  EXPECT_EQ(script.executeAndReturnError(), osaError::none) << "the code of the run, not the store";
  EXPECT_EQ(script._scriptID, 0U);
  EXPECT_FALSE(script._dirty);
  EXPECT_TRUE(script.storable);
}

TEST_F(CompiledScript, ARunningScriptHasNothingToStoreYet) {
  bool during = true;
  file.body = [&](MemoryScripts::Properties&) {
    during = script._dirty;
    return osaError::none;
  };
  script.executeAndReturnError();
  EXPECT_FALSE(during);
}

TEST_F(CompiledScript, OneThatIsLoadedAlreadyIsNotLoadedAgain) {
  script._scriptID = desktop.scripts.load(sComponent, "/count.scpt").script;
  control.log.clear();
  file.loadCode = -1758;
  EXPECT_EQ(script.executeAndReturnError(), osaError::none);
  EXPECT_THAT(control.log, ElementsAre("execute 1 = 2", "dispose 2", "dispose 1"));
}

class SavingAScript : public CompiledScript {
protected:
  SavingAScript() {
    script._scriptID = desktop.scripts.load(sComponent, "/count.scpt").script;
    script.storable = true;
    script._dirty = true;
    control.log.clear();
  }
};

TEST_F(SavingAScript, StoresWhatRanAndAnswersTheCode) {
  EXPECT_EQ(script.save(), osaError::none);
  EXPECT_THAT(control.log, ElementsAre("store 1 /count.scpt"));
  file.storeCode = diskFull;
  EXPECT_EQ(script.save(), diskFull);
}

TEST_F(SavingAScript, IsNothingWithoutARunAPathOrLeave) {
  script._dirty = false;
  EXPECT_EQ(script.save(), osaError::none);
  script._dirty = true;
  script.storable = false;
  EXPECT_EQ(script.save(), osaError::none);
  script.storable = true;
  script.filePath.clear();
  EXPECT_EQ(script.save(), osaError::none);
  EXPECT_THAT(control.log, IsEmpty());
}

} // namespace
} // namespace tavrel
