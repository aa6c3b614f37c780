#include "platform/linux/services/ServiceRun.h"

#include "base/PathString.h"
#include "base/Utf8.h"

#include <QLoggingCategory>

#include <cstring>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(serviceRunLog, "tavrel.services")

using ServiceTime = std::chrono::steady_clock;
using ServiceEnding = ProgramOutcome::Ending;
constexpr std::size_t mostServiceOutput = std::size_t{16} << 20;

std::string failureOf(const ProgramOutcome& outcome) {
  switch (outcome.ending) {
  case ServiceEnding::notStarted:
    return std::string("it cannot be started: ") + std::strerror(outcome.number);
  case ServiceEnding::signalled:
    return "signal " + std::to_string(outcome.number) + " ended it";
  default:
    return "it failed with exit status " + std::to_string(outcome.number);
  }
}

ServiceResult resultOf(const ProgramOutcome& outcome, std::string output) {
  if (outcome.ending == ServiceEnding::stopped)
    return {std::nullopt, "it did not end in time and was ended"};
  if (!outcome.isSuccess())
    return {std::nullopt, failureOf(outcome)};
  if (!isUtf8(output))
    return {std::nullopt, "what it printed is no UTF-8 text"};
  return {std::move(output), {}};
}
} // namespace

ServiceResult runService(const SelectionProgram& service, std::chrono::milliseconds timeout) {
  const std::string name = lastPathComponent(service.path);
  const auto deadline = ServiceTime::now() + timeout;
  std::string output;
  bool isTooMuch = false;
  const ProgramOutcome outcome = runSelectionProgram(
      service, {[&] { return isTooMuch || ServiceTime::now() >= deadline; },
                [&](const std::string& line) {
                  qCWarning(serviceRunLog, "%s: %s", name.c_str(), line.c_str());
                },
                [&](std::string_view bytes) {
                  isTooMuch = isTooMuch || output.size() + bytes.size() > mostServiceOutput;
                  if (!isTooMuch)
                    output.append(bytes);
                }});
  if (isTooMuch)
    return {std::nullopt, "it printed more than 16 MB"};
  return resultOf(outcome, std::move(output));
}

} // namespace tavrel
