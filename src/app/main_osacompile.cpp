// tavrel-osacompile: makes a compiled script of a source text, and shows what a compiled one holds.
#include "platform/linux/scripts/ScriptFile.h"
#include "platform/linux/system/BoundedFile.h"
#include "script/engine/Engine.h"

#include <cstdio>
#include <sys/stat.h>
#include <vector>

namespace tavrel {
namespace {

constexpr const char* usage =
    "usage: tavrel-osacompile SOURCE -o FILE   compile a source text\n"
    "       tavrel-osacompile -d FILE          show a compiled script's source and properties\n"
    "       tavrel-osacompile --help\n";

constexpr std::size_t largestSource = std::size_t{16} << 20U;
constexpr int done = 0;
constexpr int failed = 1;
constexpr int misused = 2;

/// Compiling asks the desktop for nothing.
class NoHost final : public script::Host {
public:
  script::HostAnswer perform(const script::HostEvent&) override {
    return script::HostError{script::errors::notUnderstood, "nothing runs here"};
  }
  double now() override { return 0; }
  bool shouldStop() override { return false; }
};

int complain(const std::string& file, const std::string& problem) {
  std::fprintf(stderr, "tavrel-osacompile: %s: %s\n", file.c_str(), problem.c_str());
  return failed;
}

std::string placeOf(const std::string& source, const script::Span& range) {
  std::size_t line = 1;
  for (std::size_t at = 0; at < range.start && at < source.size(); ++at)
    line +=
        source[at] == '\n' || (source[at] == '\r' && source.compare(at, 2, "\r\n") != 0) ? 1 : 0;
  return "line " + std::to_string(line) + ": ";
}

bool isThere(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0;
}

int compile(const std::string& from, const std::string& to) {
  const auto source = readFile(from, largestSource);
  if (!source)
    return complain(from, "cannot be read");
  NoHost host;
  script::Engine engine(host);
  const auto loaded = engine.loadSource(*source, script::Author::user);
  if (const auto* error = std::get_if<script::ErrorReport>(&loaded))
    return complain(from, placeOf(*source, error->range) + error->message + " (" +
                              std::to_string(error->number) + ")");
  const bool isNew = !isThere(to);
  const auto container = engine.container(std::get<script::ScriptId>(loaded));
  if (!container || !writeScriptFile(to, *container, PropertyListForm::binary))
    return complain(to, "cannot be written");
  if (isNew)
    (void)::chmod(to.c_str(), 0644);
  return done;
}

int show(const std::string& path) {
  const ScriptFile file = readScriptFile(path);
  if (file.kind != ScriptFile::Kind::container)
    return complain(path, "is no compiled script");
  const std::string* source = file.container.stringFor("source");
  std::printf("%s\n", source ? source->c_str() : "-- the source was left out");
  const PropertyList* properties = file.container.find("properties");
  if (properties && properties->dictionary() && !properties->dictionary()->empty()) {
    const auto xml = encodePropertyList(*properties, PropertyListForm::xml);
    std::printf("\n-- properties\n%s", xml ? std::string(xml->begin(), xml->end()).c_str() : "");
  }
  return done;
}

int run(const std::vector<std::string>& arguments) {
  if (arguments.size() == 1 && arguments[0] == "--help") {
    std::fputs(usage, stdout);
    return done;
  }
  if (arguments.size() == 2 && arguments[0] == "-d")
    return show(arguments[1]);
  if (arguments.size() == 3 && arguments[1] == "-o")
    return compile(arguments[0], arguments[2]);
  std::fputs(usage, stderr);
  return misused;
}

} // namespace
} // namespace tavrel

int main(int count, char** values) {
  return tavrel::run({values + 1, values + count});
}
