// What a submenu of 100,000 files costs beside the least the kernel can do: its listing of the
// folder and one statx each.

#include "FilesPorts.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "menu/NumericOrder.h"
#include "platform/linux/files/LinuxFiles.h"
#include "platform/linux/images/LinuxImages.h"
#include "platform/memory/MemoryDesktop.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

constexpr int fileCount = 100'000;

// A folder of names as cameras and people give them; one in fifty is a folder.
class LongFolder {
public:
  LongFolder() {
    std::string pattern = (fs::temp_directory_path() / "tavrel-bench-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
    for (int i = 0; i < fileCount; ++i) {
      names_.push_back(nameOf(i));
      const std::string path = path_ + "/" + names_.back();
      if (i % 50 == 0)
        ::mkdir(path.c_str(), 0755);
      else
        ::close(::open(path.c_str(), O_CREAT | O_WRONLY, 0644));
    }
  }
  ~LongFolder() { fs::remove_all(path_); }
  LongFolder(const LongFolder&) = delete;
  LongFolder& operator=(const LongFolder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::vector<std::string_view> names() const {
    return {names_.begin(), names_.end()};
  }

private:
  static std::string nameOf(int i) {
    const std::string number = std::to_string((i * 7919) % fileCount);
    return i % 3 == 0   ? "IMG_" + number + ".jpeg"
           : i % 3 == 1 ? "Report of " + number + " (final).txt"
                        : number + " notes";
  }

  std::string path_;
  std::vector<std::string> names_;
};

const LongFolder& longFolder() {
  static const LongFolder it;
  return it;
}

void listAndStatxEach(benchmark::State& state) {
  const std::string folder = longFolder().path() + "/";
  for (auto _ : state) {
    DIR* stream = ::opendir(folder.c_str());
    while (const dirent* entry = ::readdir(stream)) {
      struct statx status = {};
      benchmark::DoNotOptimize(
          ::statx(::dirfd(stream), entry->d_name, 0, STATX_BASIC_STATS, &status));
    }
    ::closedir(stream);
  }
}
BENCHMARK(listAndStatxEach)->Unit(benchmark::kMillisecond);

void sortNames(benchmark::State& state) {
  const std::vector<std::string_view> names = longFolder().names();
  for (auto _ : state)
    benchmark::DoNotOptimize(numericOrder(names));
}
BENCHMARK(sortNames)->Unit(benchmark::kMillisecond);

void browseFolder(benchmark::State& state) {
  LinuxFiles files;
  for (auto _ : state)
    benchmark::DoNotOptimize(files.browse(longFolder().path(), FinalLink::keep));
}
BENCHMARK(browseFolder)->Unit(benchmark::kMillisecond);

struct NoEvent final : EventTarget {
  void sendEvent(const Event&) override {}
};

// A memory desktop on the machine's own files and their icons.
struct FilesDesktop {
  MemoryDesktop desktop;
  LinuxFiles files;
  LinuxImages images{"."};
  Platform ports = portsWith(desktop, files, images, desktop.preferences);
  ScopedPlatform scope{ports};
  NoEvent events;
  TVApplication application{events};
  TVController controller{application};
};

std::size_t bytesInUse() {
  const auto information = ::mallinfo2();
  return information.uordblks + information.hblkhd;
}

void fillSubmenu(benchmark::State& state) {
  FilesDesktop desktop;
  Menu menu(longFolder().path());
  const std::size_t before = bytesInUse();
  for (auto _ : state)
    desktop.controller.attachFolderContentsFor(menu);
  state.SetLabel(std::to_string((bytesInUse() - before) / menu.items.size()) + " bytes an entry");
}
BENCHMARK(fillSubmenu)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tavrel
