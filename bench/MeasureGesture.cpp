// measure_gesture TURNS hotkey                     Ctrl+Alt+1 until a menu is mapped
// measure_gesture TURNS signal PROCESS             SIGUSR1 to a process until a menu is mapped
// measure_gesture TURNS command PROGRAM [ARG...]   a command until a menu is mapped
// measure_gesture TURNS copy                       Ctrl+C until the clipboard has a new owner
// measure_gesture TURNS keys FILE                  Ctrl+Alt+1, nine Downs and Return until there is
// a
//                                                  file, and how many turns had it
// measure_gesture TURNS run PROGRAM [ARG...]       a command until it has ended
// Prints median, least and greatest of the milliseconds, on the running display, whose keys it
// presses. A menu is an override-redirect window; Escape closes it again between the turns.

#include <X11/keysym.h>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using SteadyTime = std::chrono::steady_clock::time_point;
using namespace std::chrono_literals;

template <typename Content> using Reply = std::unique_ptr<Content, decltype(&std::free)>;

[[noreturn]] void giveUp(const char* why) {
  std::fprintf(stderr, "measure_gesture: %s\n", why);
  std::exit(1);
}

class Display {
public:
  Display() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_))
      giveUp("no display");
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &mask);
    std::free(xcb_xfixes_query_version_reply(connection_,
                                             xcb_xfixes_query_version(connection_, 5, 0), nullptr));
    fixesEvent_ = xcb_get_extension_data(connection_, &xcb_xfixes_id)->first_event;
    xcb_xfixes_select_selection_input(connection_, root_, atom("CLIPBOARD"),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    flush();
  }
  ~Display() { xcb_disconnect(connection_); }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

  void flush() { xcb_flush(connection_); }

  void key(xcb_keysym_t symbol, bool down) {
    xcb_test_fake_input(connection_, down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, codeOf(symbol),
                        XCB_CURRENT_TIME, root_, 0, 0, 0);
    flush();
  }

  /// A key of the display's own keyboard, some milliseconds after what came before it.
  void pressAfter(std::uint32_t pause, xcb_keysym_t symbol, bool down) {
    const std::uint8_t first = xcb_get_extension_data(connection_, &xcb_input_id)->first_event;
    xcb_test_fake_input(connection_,
                        static_cast<std::uint8_t>(first + (down ? XCB_INPUT_DEVICE_KEY_PRESS
                                                                : XCB_INPUT_DEVICE_KEY_RELEASE)),
                        codeOf(symbol), pause, root_, 0, 0, keyboard());
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  }

  /// Until an event satisfies the test; nothing when the time is over.
  bool waitFor(const std::function<bool(const xcb_generic_event_t&)>& wanted,
               std::chrono::milliseconds longest) {
    const SteadyTime deadline = std::chrono::steady_clock::now() + longest;
    while (std::chrono::steady_clock::now() < deadline) {
      const Reply<xcb_generic_event_t> event(xcb_poll_for_event(connection_), &std::free);
      if (event && wanted(*event))
        return true;
      pollfd waiting{xcb_get_file_descriptor(connection_), POLLIN, 0};
      if (!event)
        poll(&waiting, 1, 20);
    }
    return false;
  }

  void forgetEvents() {
    waitFor([](const auto&) { return false; }, 50ms);
  }

  std::optional<xcb_window_t> waitForMenu() {
    xcb_window_t menu = 0;
    const auto mapped = [&](const xcb_generic_event_t& event) {
      if ((event.response_type & 0x7F) != XCB_MAP_NOTIFY)
        return false;
      const auto& map = reinterpret_cast<const xcb_map_notify_event_t&>(event);
      menu = map.window;
      return map.override_redirect != 0;
    };
    return waitFor(mapped, 10s) ? std::optional(menu) : std::nullopt;
  }

  bool waitForOwner() {
    return waitFor(
        [&](const xcb_generic_event_t& event) {
          return (event.response_type & 0x7F) == fixesEvent_ + XCB_XFIXES_SELECTION_NOTIFY;
        },
        10s);
  }

  /// Presses Escape until the menu is gone.
  void close(xcb_window_t menu) {
    const auto gone = [&](const xcb_generic_event_t& event) {
      return (event.response_type & 0x7F) == XCB_UNMAP_NOTIFY &&
             reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window == menu;
    };
    for (int attempt = 0; attempt < 20; ++attempt) {
      key(XK_Escape, true);
      key(XK_Escape, false);
      if (waitFor(gone, 500ms))
        return;
    }
    giveUp("a menu does not close");
  }

private:
  xcb_atom_t atom(const char* name) {
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(
            connection_,
            xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name),
            nullptr),
        &std::free);
    return reply ? reply->atom : XCB_NONE;
  }

  std::uint8_t keyboard() {
    std::free(xcb_input_xi_query_version_reply(
        connection_, xcb_input_xi_query_version(connection_, 2, 2), nullptr));
    const Reply<xcb_input_xi_query_device_reply_t> devices(
        xcb_input_xi_query_device_reply(
            connection_, xcb_input_xi_query_device(connection_, XCB_INPUT_DEVICE_ALL), nullptr),
        &std::free);
    for (auto at = xcb_input_xi_query_device_infos_iterator(devices.get()); at.rem > 0;
         xcb_input_xi_device_info_next(&at))
      if (std::string(xcb_input_xi_device_info_name(at.data),
                      xcb_input_xi_device_info_name_length(at.data)) == "Xvfb keyboard")
        return static_cast<std::uint8_t>(at.data->deviceid);
    giveUp("no keyboard of a virtual display");
  }

  xcb_keycode_t codeOf(xcb_keysym_t symbol) {
    const xcb_setup_t* setup = xcb_get_setup(connection_);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const Reply<xcb_get_keyboard_mapping_reply_t> map(
        xcb_get_keyboard_mapping_reply(
            connection_, xcb_get_keyboard_mapping(connection_, setup->min_keycode, count), nullptr),
        &std::free);
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    for (int i = 0; i < count; ++i)
      if (symbols[i * map->keysyms_per_keycode] == symbol)
        return static_cast<xcb_keycode_t>(setup->min_keycode + i);
    giveUp("a key is missing");
  }

  xcb_connection_t* connection_;
  xcb_window_t root_ = 0;
  int fixesEvent_ = 0;
};

void chord(Display& display, std::initializer_list<xcb_keysym_t> symbols) {
  for (const xcb_keysym_t symbol : symbols)
    display.key(symbol, true);
  for (const xcb_keysym_t symbol : symbols)
    display.key(symbol, false);
}

pid_t started(char** command) {
  const pid_t child = fork();
  if (child != 0)
    return child;
  dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO); // ours is for the figures
  execvp(command[0], command);
  _exit(127);
}

struct Trial {
  std::function<void()> begin;
  std::function<bool()> wait; ///< until it is done
  std::function<void()> end;
};

Trial menuTrial(Display& display, std::function<void()> begin) {
  const auto menu = std::make_shared<xcb_window_t>(0);
  return {std::move(begin),
          [&display, menu] {
            const auto found = display.waitForMenu();
            *menu = found.value_or(0);
            return found.has_value();
          },
          [&display, menu] { display.close(*menu); }};
}

Trial copyTrial(Display& display) {
  const auto copy = [&display] { chord(display, {XK_Control_L, XK_c}); };
  return {copy, [&display] { return display.waitForOwner(); }, [] {}};
}

Trial trialOf(Display& display, const std::string& what, char** arguments) {
  if (what == "hotkey")
    return menuTrial(display, [&] { chord(display, {XK_Control_L, XK_Alt_L, XK_1}); });
  if (what == "signal" && arguments[0])
    return menuTrial(display, [=] { kill(std::atoi(arguments[0]), SIGUSR1); });
  if (what == "command" && arguments[0])
    return menuTrial(display, [=] { started(arguments); });
  if (what == "copy")
    return copyTrial(display);
  if (what == "run" && arguments[0])
    return {[=] { started(arguments); }, [] { return wait(nullptr) > 0; }, [] {}};
  giveUp("usage: measure_gesture TURNS hotkey|signal|command|copy|keys|run [ARGUMENT...]");
}

void typeAfterGesture(Display& display) {
  constexpr std::uint32_t pause = 5; // quicker than anybody types
  for (const xcb_keysym_t symbol : {XK_Control_L, XK_Alt_L, XK_1})
    display.pressAfter(pause, symbol, true);
  for (const xcb_keysym_t symbol : {XK_1, XK_Alt_L, XK_Control_L})
    display.pressAfter(pause, symbol, false);
  for (int key = 0; key < 10; ++key)
    for (const bool down : {true, false})
      display.pressAfter(pause, key < 9 ? XK_Down : XK_Return, down);
}

bool comes(const char* file) {
  const SteadyTime deadline = std::chrono::steady_clock::now() + 5s;
  while (access(file, F_OK) != 0 && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(2ms);
  return unlink(file) == 0;
}

int countKeys(Display& display, int turns, const char* file) {
  unlink(file);
  int right = 0;
  for (int turn = 0; turn < turns; ++turn) {
    typeAfterGesture(display);
    if (comes(file)) {
      ++right;
      continue;
    }
    for (const bool down : {true, false, true, false})
      display.pressAfter(50, XK_Escape, down);
  }
  std::printf("%d\n", right);
  return 0;
}

double timed(Display& display, const Trial& trial) {
  display.forgetEvents();
  const SteadyTime start = std::chrono::steady_clock::now();
  trial.begin();
  if (!trial.wait())
    giveUp("nothing came of it in ten seconds");
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  trial.end();
  std::this_thread::sleep_for(100ms); // until the desktop is calm again
  while (waitpid(-1, nullptr, WNOHANG) > 0) {
  }
  return taken.count();
}

} // namespace

int main(int argc, char** argv) {
  if (argc < 3)
    giveUp("usage: measure_gesture TURNS hotkey|signal|command|copy|keys|run [ARGUMENT...]");
  Display display;
  if (std::strcmp(argv[2], "keys") == 0 && argc == 4)
    return countKeys(display, std::atoi(argv[1]), argv[3]);
  const Trial trial = trialOf(display, argv[2], argv + 3);
  std::vector<double> times;
  for (int turn = 0; turn <= std::atoi(argv[1]); ++turn)
    times.push_back(timed(display, trial));
  times.erase(times.begin()); // the first one warms up
  std::sort(times.begin(), times.end());
  std::printf("%.2f %.2f %.2f\n", times[times.size() / 2], times.front(), times.back());
}
