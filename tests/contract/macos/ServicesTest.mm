#include "contract/ServicesContract.h"

#include "contract/macos/Skipping.h"
#include "platform/macos/MacPasteboards.h"
#include "platform/macos/MacServices.h"

namespace tavrel {
namespace {

class MacServicesWorld {
public:
  MacServicesWorld() {
    skipTests({"TheResultTakesThePlaceOfWhatThePasteboardHeld",
               "AServiceThatAnswersNothingLeavesThePasteboard",
               "AServiceThatFailsLeavesThePasteboard", "FilesAreHandedOver",
               "AnEmptyPasteboardIsAnEmptyText"},
              "services come with applications that a person has installed");
  }
  Services& services() { return adapter_; }
  Pasteboard& pasteboard() { return pasteboards_.named("board"); }

private:
  MacPasteboards pasteboards_;
  MacServices adapter_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, ServicesContract, MacServicesWorld);

} // namespace
} // namespace tavrel
