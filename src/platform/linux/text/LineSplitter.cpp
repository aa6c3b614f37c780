#include "platform/linux/text/LineSplitter.h"

namespace tavrel {
namespace {

constexpr std::size_t longestLine = 4096;

} // namespace

void LineSplitter::add(std::string_view bytes) {
  for (const char each : bytes) {
    if (each == '\n') {
      if (!line_.empty() || !isCut_)
        reportLine();
      isCut_ = false;
      continue;
    }
    line_.push_back(each);
    if (line_.size() == longestLine) {
      reportLine();
      isCut_ = true;
    }
  }
}

void LineSplitter::finish() {
  if (!line_.empty())
    reportLine();
}

void LineSplitter::reportLine() {
  if (report_)
    report_(line_);
  line_.clear();
}

} // namespace tavrel
