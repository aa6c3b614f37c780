// measure_start TURNS PROGRAM [PROGRAM...]: starts the programs by turns on the running display
// (which must have an XEmbed tray) and prints for each the median time until its icon was
// taken into the tray and the memory it then holds, as "PROGRAM MILLISECONDS KIBIBYTES".

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Instant = std::chrono::steady_clock::time_point;
using namespace std::chrono_literals;

struct Sample {
  double milliseconds = 0;
  double kibibytes = 0;
};

double medianOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// The memory a process alone accounts for: its own pages and its share of those in common.
double proportionalSetSize(pid_t process) {
  std::ifstream rollup("/proc/" + std::to_string(process) + "/smaps_rollup");
  for (std::string line; std::getline(rollup, line);)
    if (line.starts_with("Pss:"))
      return std::atof(line.c_str() + 4);
  return 0;
}

pid_t started(const char* program) {
  const pid_t child = fork();
  if (child != 0)
    return child;
  execl(program, program, static_cast<char*>(nullptr));
  _exit(127);
}

bool taken(const xcb_generic_event_t& event, xcb_window_t root) {
  if ((event.response_type & 0x7F) != XCB_REPARENT_NOTIFY)
    return false;
  return reinterpret_cast<const xcb_reparent_notify_event_t&>(event).parent != root;
}

// Until a window of the program is taken out of the root window, as a tray does with an icon.
bool waitForIcon(xcb_connection_t* connection, xcb_window_t root, Instant deadline) {
  while (std::chrono::steady_clock::now() < deadline) {
    const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event(
        xcb_poll_for_event(connection), &std::free);
    if (event && taken(*event, root))
      return true;
    pollfd waiting{xcb_get_file_descriptor(connection), POLLIN, 0};
    if (!event)
      poll(&waiting, 1, 50);
  }
  return false;
}

void end(pid_t process) {
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
}

Sample measured(const char* program, xcb_connection_t* connection, xcb_window_t root) {
  const Instant start = std::chrono::steady_clock::now();
  const pid_t process = started(program);
  if (!waitForIcon(connection, root, start + 20s)) {
    end(process);
    std::fprintf(stderr, "measure_start: %s put no icon into the tray\n", program);
    std::exit(1);
  }
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  std::this_thread::sleep_for(500ms); // until the first paint is over
  const Sample sample{taken.count(), proportionalSetSize(process)};
  end(process);
  return sample;
}

void report(const char* program, const std::vector<Sample>& samples) {
  std::vector<double> times;
  std::vector<double> sizes;
  for (const Sample& sample : samples) {
    times.push_back(sample.milliseconds);
    sizes.push_back(sample.kibibytes);
  }
  std::printf("%s %.1f %.0f\n", program, medianOf(times), medianOf(sizes));
}

} // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: measure_start TURNS PROGRAM [PROGRAM...]\n");
    return 2;
  }
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(connection)) {
    std::fprintf(stderr, "measure_start: no display\n");
    return 1;
  }
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
  xcb_flush(connection);

  std::vector<std::vector<Sample>> samples(static_cast<std::size_t>(argc - 2));
  for (int turn = 0; turn < std::atoi(argv[1]); ++turn)
    for (std::size_t i = 0; i < samples.size(); ++i)
      samples[i].push_back(measured(argv[i + 2], connection, root));
  for (std::size_t i = 0; i < samples.size(); ++i)
    report(argv[i + 2], samples[i]);
  xcb_disconnect(connection);
}
