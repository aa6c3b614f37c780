// What the core costs beside the least the machine could do: the tree is read and built beside
// reading its bytes, files are classified beside one statx each.

#include "FilesPorts.h"
#include "controller/PreferenceStore.h"
#include "controller/SettingKeys.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "menu/ItemRecord.h"
#include "menu/PathHelpers.h"
#include "platform/linux/files/LinuxFiles.h"
#include "platform/linux/preferences/LinuxPreferences.h"
#include "platform/memory/MemoryDesktop.h"
#include "support/ControllerState.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

constexpr int count = 10'000;

// A folder of the benchmark's own: a preference file of 10,000 records and 10,000 files.
class Scratch {
public:
  Scratch() {
    std::string pattern = (fs::temp_directory_path() / "tavrel-bench-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    fs::create_directory(folder_ / "files");
    for (int i = 0; i < count; ++i)
      paths_.push_back(addFile(i));
    LinuxPreferences preferences(folder_);
    preferences.setValue(preferenceDomain, TVR_MenuTree, tree());
  }
  ~Scratch() { fs::remove_all(folder_); }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  [[nodiscard]] std::string folder() const { return folder_; }
  [[nodiscard]] const std::vector<std::string>& paths() const { return paths_; }

private:
  std::string addFile(int number) {
    const char* endings[]{".txt", ".png", ".scpt", ".desktop", ""};
    const fs::path path =
        folder_ / "files" / ("file" + std::to_string(number) + endings[number % 5]);
    std::ofstream(path) << "contents\n";
    return path;
  }

  // Groups of a hundred documents each.
  PropertyList tree() const {
    PropertyList::Array groups;
    for (int group = 0; group < count / 100; ++group) {
      PropertyList::Array records;
      for (int i = 0; i < 99; ++i)
        records.push_back(PropertyList::Dictionary{
            {TVR_MenuItemType, "url"},
            {TVR_MenuItemTitle, "Item " + std::to_string(i)},
            {TVR_MenuItemURL, "https://example.org/" + std::to_string(i)}});
      groups.push_back(PropertyList::Dictionary{
          {TVR_MenuItemType, "group"}, {TVR_MenuItemTitle, "Group"}, {TVR_MenuItemTree, records}});
    }
    return groups;
  }

  fs::path folder_;
  std::vector<std::string> paths_;
};

const Scratch& scratch() {
  static const Scratch it;
  return it;
}

void readBytes(benchmark::State& state) {
  const std::string path = scratch().folder() + "/" + preferenceDomain + ".plist";
  for (auto _ : state) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    benchmark::DoNotOptimize(bytes.size());
  }
}
BENCHMARK(readBytes)->Unit(benchmark::kMillisecond);

void loadTree(benchmark::State& state) {
  for (auto _ : state) {
    LinuxPreferences preferences(scratch().folder());
    benchmark::DoNotOptimize(preferences.value(preferenceDomain, TVR_MenuTree));
  }
}
BENCHMARK(loadTree)->Unit(benchmark::kMillisecond);

struct NoEvents final : EventTarget {
  void sendEvent(const Event&) override {}
};

void buildMenu(benchmark::State& state) {
  MemoryDesktop desktop;
  const ScopedPlatform scope(desktop.ports);
  NoEvents events;
  TVApplication application(events);
  TVController controller(application);
  ControllerState(controller).menuRootArray =
      LinuxPreferences(scratch().folder()).value(preferenceDomain, TVR_MenuTree);
  for (auto _ : state)
    controller.createStatusMenu();
}
BENCHMARK(buildMenu)->Unit(benchmark::kMillisecond);

void loadAndBuild(benchmark::State& state) {
  MemoryDesktop desktop;
  const ScopedPlatform scope(desktop.ports);
  NoEvents events;
  TVApplication application(events);
  TVController controller(application);
  for (auto _ : state) {
    LinuxPreferences preferences(scratch().folder());
    ControllerState(controller).menuRootArray = preferences.value(preferenceDomain, TVR_MenuTree);
    controller.createStatusMenu();
  }
}
BENCHMARK(loadAndBuild)->Unit(benchmark::kMillisecond);

// The file as it is, and with one key more at its end.
std::array<std::string, 2> twoSaves(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  std::string more = text;
  more.insert(more.rfind("</dict>"), "<key>zzz</key><true/>");
  return {text, more};
}

// A file that somebody else has saved, from the moment its save is noticed.
void reloadTree(benchmark::State& state) {
  const std::string path = scratch().folder() + "/" + preferenceDomain + ".plist";
  static const auto saves = twoSaves(path);
  static std::size_t save = 0; // from run to run
  MemoryDesktop desktop;
  LinuxPreferences preferences(scratch().folder());
  Platform ports = portsWith(desktop, desktop.files, desktop.images, preferences);
  const ScopedPlatform scope(ports);
  NoEvents events;
  TVApplication application(events);
  TVController controller(application);
  controller.applicationWillFinishLaunching();
  for (auto _ : state) {
    state.PauseTiming();
    std::ofstream(path, std::ios::binary) << saves.at(++save % 2);
    state.ResumeTiming();
    if (!preferences.hasChangedElsewhere(preferenceDomain)) {
      state.SkipWithError("the change was not seen");
      break;
    }
    controller.receiveNotificationFromPrefrences({"saved", preferenceDomain, {}});
  }
}
BENCHMARK(reloadTree)->Unit(benchmark::kMillisecond);

void statxEach(benchmark::State& state) {
  for (auto _ : state)
    for (const std::string& path : scratch().paths()) {
      struct statx status = {};
      benchmark::DoNotOptimize(::statx(AT_FDCWD, path.c_str(), 0, STATX_BASIC_STATS, &status));
    }
}
BENCHMARK(statxEach)->Unit(benchmark::kMillisecond);

void classifyEach(benchmark::State& state) {
  MemoryDesktop desktop;
  LinuxFiles files;
  Platform ports = portsWith(desktop, files, desktop.images, desktop.preferences);
  const ScopedPlatform scope(ports);
  for (auto _ : state)
    for (const std::string& path : scratch().paths())
      benchmark::DoNotOptimize(itemTypeFromPath(path));
}
BENCHMARK(classifyEach)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tavrel

BENCHMARK_MAIN();
