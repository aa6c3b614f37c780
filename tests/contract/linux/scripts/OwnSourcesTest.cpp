#include "platform/linux/scripts/LinuxScripts.h"
#include "script/RecordingHost.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <variant>

namespace tavrel {
namespace {

constexpr const char* revealForm = "tell application \"%@\" to reveal \"%@\" as POSIX file";
constexpr const char* terminalForm = "tell application \"terminal\" to do script (\"%@\" as text)";

/// Sources of the application's own on a desktop that would do whatever it is asked.
class OwnSources : public ::testing::Test {
protected:
  OwnSources() {
    for (const char* command :
         {"reveal", "open", "activate", "do script", "do shell script", "delete", "get", "quit"})
      host.replies[command] = [](const script::HostEvent&) {
        return script::HostValue{std::int64_t{1}};
      };
  }
  /// The path that was revealed; what else was asked, if anything.
  std::string revealed(const std::string& path) {
    host.asked.clear();
    const auto run = scripts.runOwnSource({revealForm, {"Finder", path}});
    if (!run || run->error)
      return "an error";
    if (host.asked.size() != 1 || host.asked[0].command != "reveal" || !host.asked[0].direct)
      return "something else";
    const auto* file = std::get_if<script::HostFile>(&host.asked[0].direct->value);
    return file ? file->path : "no file";
  }

  script::RecordingHost host;
  LongRunningScripts longRunningScripts;
  LinuxScripts scripts{host, longRunningScripts, [](const std::string&) { return 0; }};
};

TEST_F(OwnSources, ADocumentsNameStartsNothing) {
  const std::string document = "/a\" as POSIX file\nget home\ntell application \"Finder\" to open "
                               "\"/a.desktop\" as POSIX file --";
  EXPECT_EQ(revealed(document), document);
}

TEST_F(OwnSources, QuotationMarksAndBackslashesStayInThePath) {
  for (const char* path :
       {"/a\"b", "/a\\b", "/a\\", "/\"", "/a\nb", "/a\tb", "/%@", "/«class»", "/¬"})
    EXPECT_EQ(revealed(path), path);
}

std::string randomPath(std::mt19937& random) {
  static constexpr std::array pieces{
      "\"",       "\\",          "\n",        "\r",         "¬\n",     " as POSIX file",
      " & ",      "(",           ")",         "--",         "(*",      "*)",
      "|",        "«",           "»",         "{",          "}",       "tell application ",
      "end tell", "get home",    "open ",     "do script ", "delete ", "do shell script ",
      "%@",       " of ",        "set x to ", "on run\n",   "end\n",   "using terms from ",
      "#",        "run script ", "quit",      "Finder",     "/",       "a"};
  std::string path = "/";
  for (auto left = random() % 12; left > 0; --left)
    path += pieces[random() % pieces.size()];
  return path;
}

TEST_F(OwnSources, WhateverAPathHoldsItIsRevealedAndNothingElseHappens) {
  std::mt19937 random(16);
  for (int each = 0; each < 100'000; ++each) {
    const std::string path = randomPath(random);
    ASSERT_EQ(revealed(path), path) << each;
  }
}

TEST_F(OwnSources, AFolderReachesTheTerminalByItsName) {
  const OwnSource ordinary{terminalForm, {"cd '/a\"b\\c'"}};
  EXPECT_FALSE(scripts.runOwnSource(ordinary)->error);
  ASSERT_EQ(host.asked.size(), 1U);
  EXPECT_EQ(std::get<std::string>(host.asked[0].direct->value), ordinary.texts[0]);
}

TEST_F(OwnSources, AFolderWhoseNameEndsItsQuotationInTheShellDoesNotReachIt) {
  EXPECT_TRUE(scripts.runOwnSource({terminalForm, {"cd '/a'; touch x; ''"}})->error);
  EXPECT_TRUE(host.asked.empty());
}

} // namespace
} // namespace tavrel
