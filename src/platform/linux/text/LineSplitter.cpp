#include "platform/linux/text/LineSplitter.h"

namespace tavrel {
namespace {

constexpr std::size_t longestLine = 4096;

} // namespace

void LineSplitter::add(std::string_view bytes) {
  for (const char each : bytes) {
    if (each == '\n') {
      if (!line_.empty() || !isCut_)
        tell();
      isCut_ = false;
      continue;
    }
    line_.push_back(each);
    if (line_.size() == longestLine) {
      tell();
      isCut_ = true;
    }
  }
}

void LineSplitter::finish() {
  if (!line_.empty())
    tell();
}

void LineSplitter::tell() {
  if (report_)
    report_(line_);
  line_.clear();
}

} // namespace tavrel
