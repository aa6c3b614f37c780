// Presses the hot key of an item that is hidden, in every way that keyboards do, and counts what
// reaches the application in front:
//   hand_on_soak [COUNT]
// The program must be running, and have a hidden item on Ctrl+K.
#include "support/FakeInput.h"
#include "support/OtherWindow.h"
#include "support/WaitFor.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace tavrel {
namespace {

constexpr std::uint8_t letter = 45; // K
constexpr std::uint8_t insertKey = 118;

enum class Chord { held, whole };

struct Typist {
  Device device;
  Chord chord;
  std::uint32_t cadence; ///< in milliseconds, from press to press
};

std::string nameOf(const Typist& typist) {
  return std::string(typist.device == Device::keyboard ? "keyboard" : "program") + ", " +
         (typist.chord == Chord::held ? "Ctrl held" : "whole chords") + ", every " +
         std::to_string(typist.cadence) + " ms";
}

void tapLetter(FakeInput& keys, std::uint32_t cadence) {
  const std::uint32_t hold = std::min(70U, cadence / 2);
  keys.waitAndPress(letter, cadence - hold);
  keys.holdAndRelease(letter, hold);
}

void type(const Typist& typist, int count) {
  FakeInput keys{typist.device};
  if (typist.chord == Chord::held)
    keys.down(serverKey::control);
  for (int each = 0; each < count; ++each) {
    if (typist.chord == Chord::whole)
      keys.down(serverKey::control);
    tapLetter(keys, typist.cadence);
    if (typist.chord == Chord::whole)
      keys.up(serverKey::control);
  }
  if (typist.chord == Chord::held)
    keys.up(serverKey::control);
}

bool isIdle(xcb_connection_t* server, std::uint8_t device) {
  auto* state = xcb_input_query_device_state_reply(
      server, xcb_input_query_device_state(server, device), nullptr);
  bool none = state != nullptr;
  for (auto at = xcb_input_query_device_state_classes_iterator(state); none && at.rem > 0;
       xcb_input_input_state_next(&at))
    if (at.data->class_id == XCB_INPUT_INPUT_CLASS_KEY) {
      const auto& keys = reinterpret_cast<const xcb_input_key_state_t*>(at.data)->keys;
      none = std::ranges::all_of(keys, [](std::uint8_t byte) { return byte == 0; });
    }
  std::free(state);
  return none;
}

// On none of the keyboards, that of programs included.
bool noKeyIsDown() {
  xcb_connection_t* server = xcb_connect(nullptr, nullptr);
  auto* devices = xcb_input_xi_query_device_reply(
      server, xcb_input_xi_query_device(server, XCB_INPUT_DEVICE_ALL), nullptr);
  bool none = devices != nullptr;
  for (auto at = xcb_input_xi_query_device_infos_iterator(devices); none && at.rem > 0;
       xcb_input_xi_device_info_next(&at))
    if (at.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD)
      none = isIdle(server, static_cast<std::uint8_t>(at.data->deviceid));
  std::free(devices);
  xcb_disconnect(server);
  return none;
}

class Soak {
public:
  /// Whether the window came to the front, and the hot key is there.
  bool begin() {
    FakeInput other;
    return waitFor([&] { return window_.hasFocus(); }) && waitFor([&] {
             const bool isFree = other.grabKey(letter, XCB_MOD_MASK_CONTROL);
             if (isFree)
               other.ungrabKey(letter, XCB_MOD_MASK_CONTROL);
             return !isFree;
           });
  }

  void run(const Typist& typist, int count) {
    const int before = arrived(), bareBefore = bare();
    type(typist, count);
    pressed_ += count;
    (void)waitFor([&] { return arrived() + bare() >= before + bareBefore + count; });
    const bool isUp = waitFor(noKeyIsDown);
    leftDown_ += isUp ? 0 : 1;
    std::printf("%s: %d of %d%s%s\n", nameOf(typist).c_str(), arrived() - before, count,
                bare() == bareBefore ? "" : ", and bare letters", isUp ? "" : ", a key stays down");
    std::fflush(stdout);
  }

  int finish() {
    const int others = window_.keys() - window_.keys(serverKey::control) - window_.keys(letter) -
                       window_.keys(insertKey); // which asks for the selection
    std::printf("%d presses: %d reached the application, %d bare letters, %d other keys, "
                "keys left down %d times\n",
                pressed_, arrived(), bare(), others, leftDown_);
    return arrived() == pressed_ && bare() == 0 && others == 0 && leftDown_ == 0 ? 0 : 1;
  }

private:
  int arrived() { return window_.keys(letter, XCB_MOD_MASK_CONTROL); }
  int bare() { return window_.keys(letter) - arrived(); }

  OtherWindow window_;
  int pressed_ = 0;
  int leftDown_ = 0;
};

int run(int count) {
  constexpr std::uint32_t cadences[]{80, 120, 150, 200, 250, 300, 400};
  constexpr int ways = 4 * std::size(cadences);
  Soak soak;
  if (!soak.begin()) {
    std::fprintf(stderr, "hand_on_soak: no window in front, or no hot key on Ctrl+K\n");
    return 2;
  }
  for (const Device device : {Device::keyboard, Device::program})
    for (const Chord chord : {Chord::held, Chord::whole})
      for (const std::uint32_t cadence : cadences)
        soak.run({device, chord, cadence}, std::max(1, (count + ways - 1) / ways));
  return soak.finish();
}

} // namespace
} // namespace tavrel

int main(int count, char** arguments) {
  return tavrel::run(count > 1 ? std::atoi(arguments[1]) : 10'000);
}
