#include "platform/linux/services/LinuxServices.h"

#include "base/PathString.h"
#include "base/Utf8.h"
#include "platform/Pasteboards.h"
#include "platform/linux/processes/SelectionProgram.h"
#include "platform/linux/services/ServiceFolders.h"

#include <QLoggingCategory>

#include <chrono>
#include <cstring>
#include <optional>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(servicesLog, "tavrel.services")

using ServiceClock = std::chrono::steady_clock;
using ServiceEnding = ProgramOutcome::Ending;
constexpr std::size_t mostServiceOutput = std::size_t{16} << 20; // bytes

/// What a service printed, or why that does not count.
struct ServiceResult {
  std::optional<std::string> output; ///< nothing when it failed
  std::string problem;               ///< one clause, when it failed
};

std::vector<std::string> filesOn(Pasteboard& pasteboard) {
  std::vector<std::string> files;
  for (const char* type : {pasteboardType::filenames, pasteboardType::pathFinderFilenames}) {
    const auto list = pasteboard.propertyList(type);
    const PropertyList::Array* array = list ? list->array() : nullptr;
    for (const PropertyList& each : array ? *array : PropertyList::Array())
      if (const std::string* path = each.string())
        files.push_back(*path);
    if (!files.empty())
      break;
  }
  return files;
}

std::string onePerLine(const std::vector<std::string>& files) {
  std::string lines;
  for (const std::string& file : files)
    lines += file + "\n";
  return lines;
}

SelectionProgram serviceProgram(const std::string& path, Pasteboard& pasteboard) {
  SelectionProgram service;
  service.path = path;
  service.files = filesOn(pasteboard);
  service.text = service.files.empty() ? pasteboard.string(pasteboardType::string).value_or("")
                                       : onePerLine(service.files);
  return service;
}

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

/// Runs a service to its end, or until the timeout; each line of its standard error goes to ours.
ServiceResult runService(const SelectionProgram& service, std::chrono::milliseconds timeout) {
  const std::string name = lastPathComponent(service.path);
  const auto deadline = ServiceClock::now() + timeout;
  std::string output;
  bool isTooMuch = false;
  const ProgramOutcome outcome = runSelectionProgram(
      service, {[&] { return isTooMuch || ServiceClock::now() >= deadline; },
                [&](const std::string& line) {
                  qCWarning(servicesLog, "%s: %s", name.c_str(), line.c_str());
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

/// Logs why a service gave nothing; always false.
bool logFailure(const std::string& name, const std::string& problem) {
  qCWarning(servicesLog, "the service \"%s\" gave nothing: %s", name.c_str(), problem.c_str());
  return false;
}
} // namespace

bool LinuxServices::performService(const std::string& name, Pasteboard& pasteboard) {
  const auto program = findService(environment_.folders, name);
  if (!program)
    return logFailure(name, "there is none of that name");
  SelectionProgram service = serviceProgram(*program, pasteboard);
  service.hostApplication = environment_.hostApplication();
  const ServiceResult result = runService(service, environment_.timeout);
  if (!result.output)
    return logFailure(name, result.problem);
  if (result.output->empty())
    return true;
  pasteboard.declareTypes({pasteboardType::string});
  return pasteboard.setString(*result.output, pasteboardType::string);
}

} // namespace tavrel
