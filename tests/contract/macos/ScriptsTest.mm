#include "contract/ScriptsContract.h"

#import "contract/macos/MacTool.h"
#include "platform/macos/MacScripts.h"
#include "support/TemporaryFolder.h"

namespace tavrel {
namespace {

const std::string counterSource = "property n : 0\nset n to n + 1\nreturn n";

class MacScriptsWorld {
public:
  Scripts& scripts() { return scripts_; }
  std::string counter() { return compiled("counter", counterSource); }
  std::int64_t countIn(const std::string& path) {
    const std::string printed = outputOfTool(
        "/usr/bin/osascript", {"-e", "n of (load script POSIX file \"" + path + "\")"});
    return std::atoll(printed.c_str());
  }
  std::string silent() { return compiled("silent", "on run\nend run"); }
  std::string failing() {
    return compiled("failing", "property n : 0\nset n to n + 1\nerror \"no\"");
  }
  std::string unreadable() { return folder_.write("unreadable.scpt", "tell application"); }
  std::string readOnly() { return compiled("fixed", counterSource, {"-x"}); }
  std::string unwritable() { return folder_.path("counter.scpt/below"); }
  std::string missing() { return folder_.path("missing.scpt"); }
  std::string listing() { return compiled("listing", "return {\"/docs/a.txt\", \"/größe 😀\"}"); }
  std::string listingNothing() { return compiled("nothing", "return {}"); }
  std::string telling() { return compiled("telling", "return \"words\""); }
  std::string stopping() { return compiled("stopping", "error \"no\""); }
  std::string goodSource() { return "return 1"; }
  std::string failingSource(int number) { return "error \"no\" number " + std::to_string(number); }
  std::string brokenSource() { return "tell"; }

private:
  std::string compiled(const std::string& name, const std::string& source,
                       std::vector<std::string> arguments = {}) {
    const std::string path = folder_.path(name + ".scpt");
    arguments.insert(arguments.end(), {"-o", path, folder_.write(name + ".applescript", source)});
    outputOfTool("/usr/bin/osacompile", arguments);
    return path;
  }

  TemporaryFolder folder_;
  MacScripts scripts_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, ScriptsContract, MacScriptsWorld);

TEST(MacScripts, ATextInASourceOfTheApplicationsOwnStaysText) {
  MacScripts scripts;
  const std::string text = "a\" & (do shell script \"true\") & \"\\";
  const auto run = scripts.runOwnSource({"error \"%@\" number 1", {text}});
  ASSERT_TRUE(run && run->error);
  EXPECT_EQ(*run->error->stringFor("NSAppleScriptErrorMessage"), text);
}

} // namespace
} // namespace tavrel
