#include "platform/linux/applications/ExecLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::Optional;

std::vector<CommandLine> expand(std::string_view exec, std::vector<std::string> urls = {}) {
  return expandExec(splitExec(exec).value_or(CommandLine()),
                    {std::move(urls), "Name", "icon", "/entry"});
}

TEST(ExecLine, BlanksPartArguments) {
  EXPECT_THAT(splitExec("  program  -a\tb "), Optional(ElementsAre("program", "-a", "b")));
}

TEST(ExecLine, QuotesKeepBlanksAndEmptyArguments) {
  EXPECT_THAT(splitExec(R"("my program" "" --x="a b")"),
              Optional(ElementsAre("my program", "", "--x=a b")));
}

TEST(ExecLine, ABackslashInQuotesSparesFourCharactersAlone) {
  EXPECT_THAT(splitExec(R"(p "\"\`\$\\" "\n")"), Optional(ElementsAre("p", "\"`$\\", "\\n")));
}

TEST(ExecLine, AShellsCharactersMeanNothing) {
  EXPECT_THAT(splitExec("p $(touch x) ;rm 'a b' >out"),
              Optional(ElementsAre("p", "$(touch", "x)", ";rm", "'a", "b'", ">out")));
}

TEST(ExecLine, AnOpenQuoteIsNoCommandLine) {
  EXPECT_FALSE(splitExec("program \"open"));
}

TEST(ExecLine, AnEmptyLineIsNoCommandLine) {
  EXPECT_FALSE(splitExec(""));
  EXPECT_FALSE(splitExec(" \t"));
}

TEST(ExecLine, OneStartTakesAList) {
  EXPECT_THAT(expand("p %F", {"file:///a%20b", "file:///c"}),
              ElementsAre(ElementsAre("p", "/a b", "/c")));
  EXPECT_THAT(expand("p %U", {"file:///a%20b", "http://x/"}),
              ElementsAre(ElementsAre("p", "file:///a%20b", "http://x/")));
}

TEST(ExecLine, EachDocumentGetsAStartWhereOneIsTaken) {
  EXPECT_THAT(expand("p %f", {"file:///a", "file:///b"}),
              ElementsAre(ElementsAre("p", "/a"), ElementsAre("p", "/b")));
  EXPECT_THAT(expand("p %u", {"file:///a", "file:///b"}),
              ElementsAre(ElementsAre("p", "file:///a"), ElementsAre("p", "file:///b")));
}

TEST(ExecLine, ADocumentComesLastWhereNoneIsForeseen) {
  EXPECT_THAT(expand("p --flag", {"file:///a", "file:///b"}),
              ElementsAre(ElementsAre("p", "--flag", "/a"), ElementsAre("p", "--flag", "/b")));
}

TEST(ExecLine, WithoutDocumentsTheirCodesStandForNothing) {
  for (const char* exec : {"p %f", "p %F", "p %u", "p %U", "p"})
    EXPECT_THAT(expand(exec), ElementsAre(ElementsAre("p"))) << exec;
}

TEST(ExecLine, AFileIsNeverSplitOrReadAsACode) {
  EXPECT_THAT(expand("p %f", {"file:///%25f%20%22$x%60;%0A"}),
              ElementsAre(ElementsAre("p", "/%f \"$x`;\n")));
}

TEST(ExecLine, BytesThatAreNoTextGoThrough) {
  EXPECT_THAT(expand("p %f", {"file:///caf%E9"}), ElementsAre(ElementsAre("p", "/caf\xE9")));
}

TEST(ExecLine, AUrlElsewhereStaysAUrl) {
  EXPECT_THAT(expand("p %f", {"file://host/a"}), ElementsAre(ElementsAre("p", "file://host/a")));
  EXPECT_THAT(expand("p %F", {"sftp://host/a"}), ElementsAre(ElementsAre("p", "sftp://host/a")));
}

TEST(ExecLine, TheEntryTellsOfItself) {
  EXPECT_THAT(expand("p %i %c %k"),
              ElementsAre(ElementsAre("p", "--icon", "icon", "Name", "/entry")));
  EXPECT_THAT(expand("p --name=%c"), ElementsAre(ElementsAre("p", "--name=Name")));
}

TEST(ExecLine, AnEntryWithoutAnIconHasNoIconOption) {
  EXPECT_THAT(expandExec({"p", "%i"}, {}), ElementsAre(ElementsAre("p")));
}

TEST(ExecLine, DeprecatedAndUnknownCodesStandForNothing) {
  EXPECT_THAT(expand("p %d %D %n %N %v %m %z end"), ElementsAre(ElementsAre("p", "end")));
}

TEST(ExecLine, TwoPercentSignsAreOne) {
  EXPECT_THAT(expand("p 100%% %%f"), ElementsAre(ElementsAre("p", "100%", "%f")));
}

TEST(ExecLine, ADocumentMayStandWithinAnArgument) {
  EXPECT_THAT(expand("p --file=%f", {"file:///a", "file:///b"}),
              ElementsAre(ElementsAre("p", "--file=/a"), ElementsAre("p", "--file=/b")));
}

TEST(ExecLine, ALonelyPercentSignAtTheEndIsDropped) {
  EXPECT_THAT(expand("p 50%"), ElementsAre(ElementsAre("p", "50")));
}

} // namespace
} // namespace tavrel
