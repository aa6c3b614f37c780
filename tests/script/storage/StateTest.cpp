#include "script/ScriptTest.h"

namespace tavrel::script {
namespace {

class StateTest : public ScriptTest {
protected:
  ScriptId loaded(const std::string& source) {
    const Engine::Loaded answer = engine.loadSource(source, Author::user);
    return std::holds_alternative<ScriptId>(answer) ? std::get<ScriptId>(answer) : 0;
  }
  ScriptId reloaded(ScriptId script) {
    const Engine::Loaded answer = engine.loadContainer(*engine.container(script));
    return std::holds_alternative<ScriptId>(answer) ? std::get<ScriptId>(answer) : 0;
  }
};

const std::string counter = "property n : 0\nset n to n + 1\nn";

TEST_F(StateTest, APropertyCountsItsRuns) {
  const ScriptId script = loaded(counter);
  EXPECT_EQ(engine.run(script).description, "1");
  EXPECT_EQ(engine.run(script).description, "2");
}

TEST_F(StateTest, AContainerKeepsWhatThePropertiesBecame) {
  const ScriptId script = loaded(counter);
  (void)engine.run(script);
  EXPECT_EQ(engine.run(reloaded(script)).description, "2");
}

TEST_F(StateTest, AFailedRunKeepsTheOldValues) {
  const ScriptId script = loaded("property n : 0\nset n to n + 1\nif n > 1 then error \"no\"\nn");
  EXPECT_EQ(engine.run(script).description, "1");
  EXPECT_EQ(engine.run(script).error->number, errors::general);
  EXPECT_EQ(engine.container(script)->find("properties")->find("n")->integer(), 1);
}

TEST_F(StateTest, ValuesOfEveryKindAreKept) {
  const std::string source = "property all : {missing value, true, 3, 2.5, \"text\", yes, list, "
                             "{name:\"Bob\", ages:{1, 2}}, POSIX file \"/a b\"}\nall";
  const ScriptId script = loaded(source);
  const std::string first = engine.run(script).description;
  EXPECT_EQ(engine.run(reloaded(script)).description, first);
}

TEST_F(StateTest, AScriptWithoutSourceStillRuns) {
  const ScriptId script = loaded(counter);
  PropertyList::Dictionary container = *engine.container(script)->dictionary();
  container.erase("source");
  const Engine::Loaded answer = engine.loadContainer(container);
  EXPECT_EQ(engine.run(std::get<ScriptId>(answer)).description, "1");
}

TEST_F(StateTest, ADamagedContainerIsAnError) {
  PropertyList::Dictionary container = *engine.container(loaded(counter))->dictionary();
  Bytes compiled = *container.at("compiled").data();
  compiled.pop_back();
  container.insert_or_assign("compiled", compiled);
  const Engine::Loaded answer = engine.loadContainer(container);
  EXPECT_EQ(std::get<ErrorReport>(answer).number, errors::corruptScript);
}

TEST_F(StateTest, ADisposedScriptIsNotThereAnyMore) {
  const ScriptId script = loaded(counter);
  engine.dispose(script);
  EXPECT_EQ(engine.run(script).error->number, errors::corruptScript);
  EXPECT_FALSE(engine.container(script));
}

// A script object knows the script it stands in, and that one knows it.
TEST_F(StateTest, ScriptsThatHoldEachOtherAreFreedAfterTheirRun) {
  limits.heap = std::size_t{8} << 20U;
  const ScriptId script = loaded("script inner\nproperty t : \"0123456789\"\nend script\n"
                                 "repeat 17 times\nset t of inner to t of inner & t of inner\n"
                                 "end repeat\nlength of t of inner");
  for (int i = 0; i < 20; ++i)
    EXPECT_EQ(engine.run(script, {}, limits).description, "1310720") << i;
}

TEST_F(StateTest, WhatCannotBeKeptLeavesTheOldValueInTheFile) {
  const ScriptId script = loaded("property p : 0\nif p is 0 then\nset p to 1\nelse\n"
                                 "set p to me\nend if\n1");
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(engine.run(script).description, "1");
  EXPECT_EQ(engine.container(script)->find("properties")->find("p")->integer(), 1);
}

TEST_F(StateTest, AListThatHoldsAnotherTooOftenIsNotKept) {
  const ScriptId script = loaded("property p : 1\nset p to {1}\nrepeat 40 times\n"
                                 "set p to {p, p}\nend repeat\ncount p");
  EXPECT_EQ(engine.run(script).description, "2");
  EXPECT_FALSE(engine.container(script)->find("properties")->find("p"));
}

TEST_F(StateTest, AListThatHoldsItselfIsFreed) {
  EXPECT_EQ(errorOf("set L to {}\nset end of L to L\nlength of L"), 0);
}

} // namespace
} // namespace tavrel::script
