#include "script/ScriptTest.h"
#include "script/engine/DocumentedRows.h"

#include <fstream>
#include <set>

namespace tavrel::script {
namespace {

constexpr double documentedNow = 730904706; // Thursday, February 29, 2024, 13:05:06

// A desktop that answers every question with the question itself.
class DocumentedDesktop final : public Host {
public:
  HostAnswer perform(const HostEvent& event) override {
    HostRecord question = event.parameters;
    question["command"] = HostValue{event.command};
    if (!event.application.empty())
      question["application"] = HostValue{event.application};
    if (event.direct)
      question["direct"] = *event.direct;
    return HostValue{question};
  }
  double now() override { return documentedNow; }
  bool shouldStop() override { return false; }
};

std::string documentedResult(const std::string& source) {
  DocumentedDesktop desktop;
  Engine engine(desktop);
  const Engine::Loaded loaded = engine.loadSource(source, Author::user);
  if (const auto* error = std::get_if<ErrorReport>(&loaded))
    return "error " + std::to_string(error->number);
  const RunResult run = engine.run(std::get<ScriptId>(loaded), {"first", "second"});
  return run.error ? "error " + std::to_string(run.error->number) : run.description;
}

TEST(DocumentedTest, EveryRowGivesTheResultItShows) {
  for (const DocumentedRow& row : documentedRows())
    EXPECT_EQ(documentedResult(row.source), row.result)
        << "line " << row.line << ", " << row.feature << ":\n"
        << row.source;
}

TEST(DocumentedTest, EverySectionHasRows) {
  std::set<std::string> sections;
  for (const DocumentedRow& row : documentedRows())
    sections.insert(row.section);
  for (const char* each : {"Values", "Text", "Lists", "Records", "Dates", "Operators", "Comparison",
                           "Control", "Handlers", "Script objects", "Tell",
                           "Commands of the engine", "Commands of the desktop", "Left out"})
    EXPECT_TRUE(sections.contains(each)) << each;
}

// A row whose cells are not read would be a promise without a test.
TEST(DocumentedTest, EveryLineOfATableIsARow) {
  std::ifstream file(TAVREL_SCRIPTING_TABLE);
  std::size_t lines = 0;
  std::size_t headings = 0;
  for (std::string line; std::getline(file, line);) {
    lines += line.starts_with("|") ? 1 : 0;
    headings += line.starts_with("|---") ? 2 : 0;
  }
  EXPECT_GT(headings, 0U);
  EXPECT_EQ(documentedRows().size() + headings, lines);
}

} // namespace
} // namespace tavrel::script
