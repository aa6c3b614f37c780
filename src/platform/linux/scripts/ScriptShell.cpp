#include "platform/linux/scripts/ScriptShell.h"

#include "base/Utf8.h"
#include "platform/linux/processes/ProgramRun.h"
#include "platform/linux/processes/ProgramSearch.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "platform/linux/text/WellFormedText.h"
#include "script/ScriptError.h"

#include <algorithm>

namespace tavrel {
namespace {

using ShellEnding = ProgramOutcome::Ending;

constexpr std::size_t mostOutput = std::size_t{64} << 20U;
constexpr std::size_t mostErrorOutput = std::size_t{1} << 20U;

/// What a command printed, up to a number of bytes.
class BoundedOutput {
public:
  explicit BoundedOutput(std::size_t most) : most_(most) {}
  void add(std::string_view bytes) {
    text_.append(bytes.substr(0, most_ - text_.size()));
    isTooMuch_ = isTooMuch_ || text_.size() == most_;
  }
  [[nodiscard]] bool isTooMuch() const { return isTooMuch_; }
  [[nodiscard]] std::string withoutLastLineFeed() && {
    if (text_.ends_with('\n'))
      text_.pop_back();
    return std::move(text_);
  }

private:
  std::size_t most_;
  std::string text_;
  bool isTooMuch_ = false;
};

script::HostError failure(const ProgramOutcome& outcome, BoundedOutput& errorOutput) {
  if (outcome.ending == ShellEnding::stopped)
    return {script::errors::userCanceled, "User canceled."};
  if (outcome.ending == ShellEnding::notStarted)
    return {script::errors::fileNotFound, "The shell can’t be started."};
  if (outcome.ending == ShellEnding::signalled)
    return {script::errors::general, "The command was ended by a signal."};
  std::string message = wellFormedText(std::move(errorOutput).withoutLastLineFeed());
  if (message.empty())
    message.append("The command exited with a non-zero status.");
  return {outcome.number, std::move(message)};
}

script::HostAnswer textOf(BoundedOutput& printed, bool useCarriageReturns) {
  std::string output = std::move(printed).withoutLastLineFeed();
  if (!isUtf8(output))
    return script::HostError{script::errors::cannotCoerce,
                             "What the command printed is no UTF-8 text."};
  if (useCarriageReturns)
    std::replace(output.begin(), output.end(), '\n', '\r');
  return script::HostValue{std::move(output)};
}

/// Nothing when administrator privileges are wanted and pkexec is not installed.
std::optional<ProcessRequest> requestFor(const script::HostEvent& event) {
  ProcessRequest request{"/bin/sh", {"/bin/sh", "-c", directText(event)}, "/", {}};
  if (!flagParameter(event, "administrator privileges", false))
    return request;
  const auto pkexec = findProgram("pkexec");
  if (!pkexec)
    return std::nullopt;
  request.program = *pkexec;
  request.arguments.insert(request.arguments.begin(), *pkexec);
  return request;
}

} // namespace

script::HostAnswer runShellScript(const script::HostEvent& event,
                                  const std::function<bool()>& shouldStop) {
  const auto request = requestFor(event);
  if (!request)
    return script::HostError{script::errors::fileNotFound, "Administrators can’t be asked here."};
  if (directText(event).find('\0') != std::string::npos)
    return script::HostError{script::errors::cannotCoerce, "A command has no null character."};
  BoundedOutput output(mostOutput);
  BoundedOutput errorOutput(mostErrorOutput);
  const ProgramOutcome outcome =
      runProgram(*request, {},
                 {[&] { return output.isTooMuch() || shouldStop(); },
                  [&](std::string_view bytes) { errorOutput.add(bytes); },
                  [&](std::string_view bytes) { output.add(bytes); }});
  if (output.isTooMuch())
    return script::HostError{script::errors::outOfMemory, "The command printed over 64 MB."};
  if (!outcome.isSuccess())
    return failure(outcome, errorOutput);
  return textOf(output, flagParameter(event, "altering line endings", true));
}

} // namespace tavrel
