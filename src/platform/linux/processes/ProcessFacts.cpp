#include "platform/linux/processes/ProcessFacts.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace tavrel {

namespace {

std::string folderOf(std::int32_t pid) {
  return "/proc/" + std::to_string(pid);
}

} // namespace

std::string executableOf(std::int32_t pid) {
  constexpr std::string_view replaced =
      " (deleted)"; // how the kernel marks a program that was updated since it started
  std::error_code error;
  std::string path = std::filesystem::read_symlink(folderOf(pid) + "/exe", error).string();
  if (path.ends_with(replaced))
    path.resize(path.size() - replaced.size());
  return error ? std::string() : path;
}

std::uint64_t startTimeOf(std::int32_t pid) {
  constexpr int fieldsBetween = 19; // from the state, after the name in brackets, to the start time
  std::ifstream file(folderOf(pid) + "/stat");
  std::string text; // read by a function that reports what fails midway: the process may end
  std::getline(file, text, '\0');
  const std::size_t end = text.rfind(')');
  if (end == std::string::npos)
    return 0;
  std::istringstream fields(text.substr(end + 1));
  std::string skipped;
  for (int field = 0; field < fieldsBetween; ++field)
    fields >> skipped;
  std::uint64_t time = 0;
  fields >> time;
  return time;
}

} // namespace tavrel
