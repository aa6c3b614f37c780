#pragma once

#include "platform/linux/applications/ApplicationRegistry.h"
#include "support/ScratchFolders.h"
#include "support/WaitFor.h"

#include <algorithm>

namespace tavrel {

/// One start of a fake application.
struct FakeStart {
  std::vector<std::string> arguments;
  std::string folder;
  std::string environment; ///< every variable, each ended by a zero
};

/// Applications that do nothing but write down how they were started.
class FakeApplications {
public:
  FakeApplications() {
    for (const auto& folder : {data() / "applications", records(), programs(), config()})
      std::filesystem::create_directories(folder);
  }

  /// A program of that name; returns its path.
  std::string addProgram(const std::string& name) {
    const std::filesystem::path program = programs() / name;
    write(program, "#!/bin/sh\nset -e\nrecord=$(mktemp -d '" + records().string() + "/." + name +
                       ".XXXXXX')\n"
                       "for each; do printf '%s\\0' \"$each\"; done >\"$record/arguments\"\n"
                       "pwd | tr -d '\\n' >\"$record/folder\"\nenv -0 >\"$record/environment\"\n"
                       "mv \"$record\" '" +
                       records().string() + "/'$$." + name + "\n");
    ::chmod(program.c_str(), 0755);
    return program.string();
  }

  /// A desktop entry with a program of the same name; returns its path. `codes` end the command
  /// line; `lines` are more keys.
  std::string add(const std::string& name, const std::string& lines = {},
                  const std::string& codes = "%U") {
    return addEntry(name, "Exec=\"" + addProgram(name) + "\" " + codes + "\n" + lines);
  }

  std::string addEntry(const std::string& name, const std::string& lines) {
    const auto path = data() / "applications" / (name + ".desktop");
    write(path, "[Desktop Entry]\nType=Application\nName=" + name + "\n" + lines);
    return path.string();
  }

  /// How an application was started, in no order.
  std::vector<FakeStart> starts(const std::string& name) const {
    std::vector<FakeStart> result;
    for (const auto& entry : std::filesystem::directory_iterator(records()))
      if (isRecordOf(entry.path().filename().string(), name))
        result.push_back(readStartOf(entry.path()));
    return result;
  }

  /// The first start of an application, waited for.
  FakeStart awaitStart(const std::string& name) const {
    return waitFor([&] { return !starts(name).empty(); }) ? starts(name).front() : FakeStart();
  }

  /// The arguments of every start, waited for.
  std::vector<std::vector<std::string>> awaitArguments(const std::string& name,
                                                       std::size_t count) const {
    waitFor([&] { return starts(name).size() >= count; });
    std::vector<std::vector<std::string>> result;
    for (const FakeStart& start : starts(name))
      result.push_back(start.arguments);
    std::ranges::sort(result);
    return result;
  }

  [[nodiscard]] XdgFolders folders() const { return {{data()}, {config()}, {}}; }
  [[nodiscard]] std::filesystem::path data() const { return scratch_.path() / "data"; }
  [[nodiscard]] std::filesystem::path config() const { return scratch_.path() / "config"; }
  [[nodiscard]] std::filesystem::path programs() const { return scratch_.path() / "bin"; }
  [[nodiscard]] std::filesystem::path records() const { return scratch_.path() / "records"; }

private:
  /// Records are named "PROCESS.NAME", hidden until they are whole.
  static bool isRecordOf(const std::string& record, const std::string& name) {
    return record[0] != '.' && record.substr(record.find('.') + 1) == name;
  }

  static FakeStart readStartOf(const std::filesystem::path& record) {
    FakeStart start{{}, read(record / "folder"), read(record / "environment")};
    const std::string arguments = read(record / "arguments");
    for (std::size_t at = 0; at < arguments.size(); at += start.arguments.back().size() + 1)
      start.arguments.emplace_back(arguments.c_str() + at);
    return start;
  }

  ScratchFolder scratch_;
};

} // namespace tavrel
