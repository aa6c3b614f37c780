#include "contract/ServicesContract.h"

#include "platform/memory/MemoryPasteboards.h"
#include "platform/memory/MemoryServices.h"

#include <gmock/gmock.h>

namespace tavrel {
namespace {

bool answer(Pasteboard& board, const std::string& text) {
  board.declareTypes({pasteboardType::string});
  return board.setString(text, pasteboardType::string);
}

bool reverse(Pasteboard& board) {
  const std::string text = board.string(pasteboardType::string).value_or("");
  return text.empty() || answer(board, {text.rbegin(), text.rend()});
}

bool nameFiles(Pasteboard& board) {
  std::string lines;
  for (const char* type : {pasteboardType::filenames, pasteboardType::pathFinderFilenames})
    if (const auto list = board.propertyList(type))
      for (const PropertyList& path : *list->array())
        lines += *path.string() + "\n";
  return answer(board, lines);
}

class MemoryServicesWorld {
public:
  MemoryServicesWorld() {
    services_.control.services = {{"reverse", reverse},
                                  {"silent", [](Pasteboard&) { return true; }},
                                  {"failing", [](Pasteboard&) { return false; }},
                                  {"names", nameFiles}};
  }
  Services& services() { return services_; }
  Pasteboard& pasteboard() { return pasteboards_.named("board"); }

private:
  MemoryServices services_;
  MemoryPasteboards pasteboards_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ServicesContract, MemoryServicesWorld);

TEST(MemoryServices, WritesDownWhatIsAskedFor) {
  MemoryServices services;
  MemoryPasteboards pasteboards;
  (void)services.performService("none", pasteboards.named("board"));
  EXPECT_THAT(services.control.performed, ::testing::ElementsAre("none"));
}

} // namespace
} // namespace tavrel
