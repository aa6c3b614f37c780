#include "platform/linux/processes/ExecutableScript.h"

#include "platform/linux/text/LineSplitter.h"

#include <QFile>
#include <QTemporaryFile>

#include <cerrno>

namespace tavrel {
namespace {

/// False when the disk did not take all of it: a path that was cut short is another path.
bool writeSelection(QTemporaryFile& file, const std::vector<std::string>& paths) {
  if (!file.open())
    return false;
  for (const std::string& path : paths) {
    const auto size = static_cast<qint64>(path.size()) + 1;
    if (file.write(path.c_str(), size) != size)
      return false;
  }
  return file.flush();
}

ProcessRequest requestFor(const ExecutableScript& script, const QTemporaryFile& selection) {
  ProcessRequest request{script.path, {script.path}, {}, {}};
  request.arguments.insert(request.arguments.end(), script.files.begin(), script.files.end());
  request.environment = {
      {"TAVREL_SELECTION_FILES", QFile::encodeName(selection.fileName()).toStdString()},
      {"TAVREL_HOST_APP", script.hostApplication}};
  return request;
}

} // namespace

ExecutableOutcome runExecutableScript(const ExecutableScript& script,
                                      const ScriptProcessWatch& watch) {
  QTemporaryFile selection;
  if (!writeSelection(selection, script.files) && !script.files.empty())
    return {ExecutableOutcome::Ending::notStarted, EIO};
  LineSplitter lines(watch.report);
  const ExecutableOutcome outcome = runProgram(
      requestFor(script, selection), script.text,
      {watch.shouldStop, [&](std::string_view bytes) { lines.add(bytes); }, watch.output});
  lines.finish();
  return outcome;
}

} // namespace tavrel
