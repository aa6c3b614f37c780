#include "platform/linux/processes/SelectionProgram.h"

#include "platform/linux/text/LineSplitter.h"

#include <QFile>
#include <QTemporaryFile>

#include <cerrno>

namespace tavrel {
namespace {

/// False when the disk is full: a path that was cut short would be another path.
bool writeFileList(QTemporaryFile& file, const std::vector<std::string>& paths) {
  if (!file.open())
    return false;
  for (const std::string& path : paths) {
    const auto size = static_cast<qint64>(path.size()) + 1;
    if (file.write(path.c_str(), size) != size)
      return false;
  }
  return file.flush();
}

ProcessRequest requestFor(const SelectionProgram& program, const QTemporaryFile& fileList) {
  ProcessRequest request{program.path, {program.path}, {}, {}};
  request.arguments.insert(request.arguments.end(), program.files.begin(), program.files.end());
  request.environment = {
      {"TAVREL_SELECTION_FILES", QFile::encodeName(fileList.fileName()).toStdString()},
      {"TAVREL_HOST_APP", program.hostApplication}};
  return request;
}

} // namespace

ProgramOutcome runSelectionProgram(const SelectionProgram& program,
                                   const SelectionProgramWatch& watch) {
  QTemporaryFile fileList;
  if (!writeFileList(fileList, program.files) && !program.files.empty())
    return {ProgramOutcome::Ending::notStarted, EIO};
  LineSplitter lines(watch.reportLine);
  const ProgramOutcome outcome = runProgram(
      requestFor(program, fileList), program.text,
      {watch.shouldStop, [&](std::string_view bytes) { lines.add(bytes); }, watch.output});
  lines.finish();
  return outcome;
}

} // namespace tavrel
