#pragma once

#include "base/Utf8.h"
#include "platform/Scripts.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tavrel {

/// What scripts mean on every desktop. A World has:
///   Scripts& scripts()
///   std::string counter()      a compiled script whose property counts its runs; it returns that
///   std::int64_t countIn(path) the property as the file has it
///   std::string silent()       one that returns nothing
///   std::string failing()      one that counts, too, and then raises an error
///   std::string unreadable()   a file that holds no script
///   std::string readOnly()     a counter that may not be stored back
///   std::string unwritable()   a path that nothing can be stored at
///   std::string missing()      a path where nothing is
///   std::string listing()      a script for its result: {"/docs/a.txt", "/größe 😀"}
///   std::string listingNothing() one that returns {}
///   std::string telling()      one that returns a text
///   std::string stopping()     one that raises an error
///   std::string goodSource()   a source text that runs to its end
///   std::string failingSource(number) one that raises an error of that number
///   std::string brokenSource() a text that does not compile
template <typename World> class ScriptsContract : public ::testing::Test {
protected:
  Scripts& scripts() { return world.scripts(); }
  ComponentInstance open() {
    return scripts().openDefaultComponent(kOSAComponentType, kAppleScriptSubtype);
  }
  OSAID load(const std::string& path) {
    const LoadedScript loaded = scripts().load(component, path);
    EXPECT_EQ(loaded.code, osaError::none) << path;
    return loaded.script;
  }
  OSAError run(OSAID script) {
    const ExecutedScript executed = scripts().execute(component, script);
    EXPECT_EQ(scripts().dispose(component, executed.result), osaError::none);
    return executed.code;
  }
  OSAError numberOf(const std::string& source) {
    const auto run = scripts().runSource(source);
    const PropertyList* number =
        run && run->error ? run->error->find("NSAppleScriptErrorNumber") : nullptr;
    return number ? static_cast<OSAError>(number->integer().value_or(0)) : osaError::none;
  }

  World world;
  ComponentInstance component = open();
};

TYPED_TEST_SUITE_P(ScriptsContract);

/// The raw data of a text as the text.
inline std::string textOfUnits(const Bytes& data) {
  std::u16string units(data.size() / sizeof(char16_t), u'\0');
  std::memcpy(units.data(), data.data(), units.size() * sizeof(char16_t));
  return utf8FromUtf16(units);
}

TYPED_TEST_P(ScriptsContract, TheComponentForCompiledScriptsIsThere) {
  EXPECT_NE(this->component, 0U);
  EXPECT_NE(this->open(), 0U);
}

TYPED_TEST_P(ScriptsContract, AnUnknownComponentCannotBeOpened) {
  EXPECT_EQ(this->scripts().openDefaultComponent(kOSAComponentType, 0x3F3F3F3F), 0U);
  EXPECT_EQ(this->scripts().openDefaultComponent(0x3F3F3F3F, kAppleScriptSubtype), 0U);
}

TYPED_TEST_P(ScriptsContract, NothingRunsWithoutAComponent) {
  const LoadedScript loaded = this->scripts().load(0, this->world.counter());
  EXPECT_EQ(loaded.code, osaError::componentNotFound);
  EXPECT_EQ(loaded.script, 0U);
  EXPECT_EQ(this->scripts().execute(0, 1).code, osaError::componentNotFound);
  EXPECT_EQ(this->scripts().dispose(0, 1), osaError::componentNotFound);
  EXPECT_EQ(this->scripts().store(0, 1, this->world.counter()), osaError::componentNotFound);
}

TYPED_TEST_P(ScriptsContract, AScriptIsLoadedAndRuns) {
  const LoadedScript loaded = this->scripts().load(this->component, this->world.counter());
  EXPECT_EQ(loaded.code, osaError::none);
  EXPECT_NE(loaded.script, 0U);
  EXPECT_TRUE(loaded.storable);
  const ExecutedScript executed = this->scripts().execute(this->component, loaded.script);
  EXPECT_EQ(executed.code, osaError::none);
  EXPECT_NE(executed.result, 0U);
  EXPECT_NE(executed.result, loaded.script);
}

TYPED_TEST_P(ScriptsContract, AScriptThatReturnsNothingSucceeds) {
  EXPECT_EQ(this->run(this->load(this->world.silent())), osaError::none);
}

TYPED_TEST_P(ScriptsContract, AMissingFileIsTold) {
  const LoadedScript loaded = this->scripts().load(this->component, this->world.missing());
  EXPECT_EQ(loaded.code, osaError::fileNotFound);
  EXPECT_EQ(loaded.script, 0U);
}

TYPED_TEST_P(ScriptsContract, AFileThatHoldsNoScriptIsRefused) {
  const LoadedScript loaded = this->scripts().load(this->component, this->world.unreadable());
  EXPECT_NE(loaded.code, osaError::none);
  EXPECT_EQ(loaded.script, 0U);
}

TYPED_TEST_P(ScriptsContract, AFailingScriptTellsACodeAndHasNoResult) {
  const OSAID script = this->load(this->world.failing());
  const ExecutedScript executed = this->scripts().execute(this->component, script);
  EXPECT_EQ(executed.code, osaError::scriptError);
  EXPECT_EQ(executed.result, 0U);
}

TYPED_TEST_P(ScriptsContract, PropertiesLastFromRunToRunOfALoadedScript) {
  const std::string path = this->world.counter();
  const OSAID script = this->load(path);
  this->run(script);
  this->run(script);
  EXPECT_EQ(this->scripts().store(this->component, script, path), osaError::none);
  EXPECT_EQ(this->world.countIn(path), 2);
}

TYPED_TEST_P(ScriptsContract, ARunThatIsNotStoredLeavesTheFileAlone) {
  const std::string path = this->world.counter();
  this->run(this->load(path));
  EXPECT_EQ(this->world.countIn(path), 0);
}

TYPED_TEST_P(ScriptsContract, AStoredScriptGoesOnWhereItWas) {
  const std::string path = this->world.counter();
  for (int count = 1; count <= 3; ++count) {
    const OSAID script = this->load(path);
    this->run(script);
    EXPECT_EQ(this->scripts().store(this->component, script, path), osaError::none);
    EXPECT_EQ(this->scripts().dispose(this->component, script), osaError::none);
    EXPECT_EQ(this->world.countIn(path), count);
  }
}

TYPED_TEST_P(ScriptsContract, TwoLoadsOfAFileAreTwoScripts) {
  const std::string path = this->world.counter();
  const OSAID first = this->load(path);
  const OSAID second = this->load(path);
  EXPECT_NE(first, second);
  this->run(first);
  this->run(first);
  this->run(second);
  EXPECT_EQ(this->scripts().store(this->component, second, path), osaError::none);
  EXPECT_EQ(this->world.countIn(path), 1);
}

TYPED_TEST_P(ScriptsContract, AReadOnlyScriptRunsAndIsNotStorable) {
  const LoadedScript loaded = this->scripts().load(this->component, this->world.readOnly());
  EXPECT_EQ(loaded.code, osaError::none);
  EXPECT_FALSE(loaded.storable);
  EXPECT_EQ(this->run(loaded.script), osaError::none);
}

TYPED_TEST_P(ScriptsContract, StoringWhereNothingCanBeWrittenIsTold) {
  const OSAID script = this->load(this->world.counter());
  EXPECT_NE(this->scripts().store(this->component, script, this->world.unwritable()),
            osaError::none);
}

TYPED_TEST_P(ScriptsContract, AFileThatIsGoneIsNotMadeAgainByStoring) {
  const OSAID script = this->load(this->world.counter());
  EXPECT_EQ(this->scripts().store(this->component, script, this->world.missing()),
            osaError::fileNotFound);
  EXPECT_EQ(this->scripts().load(this->component, this->world.missing()).code,
            osaError::fileNotFound);
}

TYPED_TEST_P(ScriptsContract, WhatWasDisposedOfIsGone) {
  const std::string path = this->world.counter();
  const OSAID script = this->load(path);
  EXPECT_EQ(this->scripts().dispose(this->component, script), osaError::none);
  EXPECT_EQ(this->scripts().dispose(this->component, script), osaError::invalidID);
  EXPECT_EQ(this->scripts().execute(this->component, script).code, osaError::invalidID);
  EXPECT_EQ(this->scripts().store(this->component, script, path), osaError::invalidID);
}

TYPED_TEST_P(ScriptsContract, DisposingOfNothingIsHarmless) {
  EXPECT_EQ(this->scripts().dispose(this->component, 0), osaError::none);
}

TYPED_TEST_P(ScriptsContract, NothingIsNoScript) {
  EXPECT_EQ(this->scripts().execute(this->component, 0).code, osaError::invalidID);
  EXPECT_EQ(this->scripts().store(this->component, 0, this->world.counter()), osaError::invalidID);
}

TYPED_TEST_P(ScriptsContract, AResultIsNoScript) {
  const OSAID script = this->load(this->world.counter());
  const OSAID result = this->scripts().execute(this->component, script).result;
  EXPECT_EQ(this->scripts().execute(this->component, result).code, osaError::invalidID);
}

TYPED_TEST_P(ScriptsContract, ASourceThatRunsToItsEndHasNoError) {
  for (const auto& run : {this->scripts().runSource(this->world.goodSource()),
                          this->scripts().runOwnSource({this->world.goodSource(), {}})}) {
    ASSERT_TRUE(run);
    EXPECT_FALSE(run->error);
  }
}

TYPED_TEST_P(ScriptsContract, AFailingSourceTellsItsNumberAndWords) {
  const std::string source = this->world.failingSource(-1728);
  const auto run = this->scripts().runOwnSource({source, {}});
  ASSERT_TRUE(run);
  ASSERT_TRUE(run->error);
  EXPECT_NE(run->error->stringFor("NSAppleScriptErrorMessage"), nullptr);
  EXPECT_EQ(this->numberOf(source), -1728);
}

TYPED_TEST_P(ScriptsContract, ASourceThatDoesNotCompileFailsAsItRuns) {
  EXPECT_NE(this->numberOf(this->world.brokenSource()), osaError::none);
}

TYPED_TEST_P(ScriptsContract, AResultThatIsAListHasTheUnitsOfItsTexts) {
  const auto script = this->scripts().initWithContentsOfFile(this->world.listing());
  ASSERT_TRUE(script);
  const auto result = script->execute();
  ASSERT_TRUE(result);
  EXPECT_EQ(result->descriptorType, typeAEList);
  ASSERT_EQ(result->items.size(), 2U);
  EXPECT_EQ(textOfUnits(result->items[0]), "/docs/a.txt");
  EXPECT_EQ(textOfUnits(result->items[1]), "/größe 😀");
}

TYPED_TEST_P(ScriptsContract, AnEmptyListIsAListAllTheSame) {
  const auto script = this->scripts().initWithContentsOfFile(this->world.listingNothing());
  ASSERT_TRUE(script);
  const auto result = script->execute();
  ASSERT_TRUE(result);
  EXPECT_EQ(result->descriptorType, typeAEList);
  EXPECT_TRUE(result->items.empty());
}

TYPED_TEST_P(ScriptsContract, AResultThatIsATextIsNoList) {
  const auto script = this->scripts().initWithContentsOfFile(this->world.telling());
  ASSERT_TRUE(script);
  const auto result = script->execute();
  ASSERT_TRUE(result);
  EXPECT_NE(result->descriptorType, typeAEList);
}

TYPED_TEST_P(ScriptsContract, AScriptRunForItsResultThatFailsHasNone) {
  const auto script = this->scripts().initWithContentsOfFile(this->world.stopping());
  ASSERT_TRUE(script);
  EXPECT_FALSE(script->execute());
}

TYPED_TEST_P(ScriptsContract, AScriptRunsForItsResultAsOftenAsItIsAsked) {
  const auto script = this->scripts().initWithContentsOfFile(this->world.listing());
  ASSERT_TRUE(script);
  EXPECT_TRUE(script->execute());
  EXPECT_TRUE(script->execute());
}

TYPED_TEST_P(ScriptsContract, WhatCannotBeReadIsNoScriptToRunForItsResult) {
  EXPECT_FALSE(this->scripts().initWithContentsOfFile(this->world.missing()));
  EXPECT_FALSE(this->scripts().initWithContentsOfFile(this->world.unreadable()));
}

REGISTER_TYPED_TEST_SUITE_P(
    ScriptsContract, TheComponentForCompiledScriptsIsThere, AnUnknownComponentCannotBeOpened,
    NothingRunsWithoutAComponent, AScriptIsLoadedAndRuns, AScriptThatReturnsNothingSucceeds,
    AMissingFileIsTold, AFileThatHoldsNoScriptIsRefused, AFailingScriptTellsACodeAndHasNoResult,
    PropertiesLastFromRunToRunOfALoadedScript, ARunThatIsNotStoredLeavesTheFileAlone,
    AStoredScriptGoesOnWhereItWas, TwoLoadsOfAFileAreTwoScripts,
    AReadOnlyScriptRunsAndIsNotStorable, StoringWhereNothingCanBeWrittenIsTold,
    AFileThatIsGoneIsNotMadeAgainByStoring, WhatWasDisposedOfIsGone, DisposingOfNothingIsHarmless,
    NothingIsNoScript, AResultIsNoScript, ASourceThatRunsToItsEndHasNoError,
    AFailingSourceTellsItsNumberAndWords, ASourceThatDoesNotCompileFailsAsItRuns,
    AResultThatIsAListHasTheUnitsOfItsTexts, AnEmptyListIsAListAllTheSame,
    AResultThatIsATextIsNoList, AScriptRunForItsResultThatFailsHasNone,
    AScriptRunsForItsResultAsOftenAsItIsAsked, WhatCannotBeReadIsNoScriptToRunForItsResult);

} // namespace tavrel
