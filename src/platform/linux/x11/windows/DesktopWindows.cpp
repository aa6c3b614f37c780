#include "platform/linux/x11/windows/DesktopWindows.h"

#include "platform/linux/x11/windows/ClientProcess.h"
#include "platform/linux/x11/windows/FocusedWindow.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unistd.h>
#include <xcb/xcb.h>

namespace tavrel {

namespace {

template <typename Reply> using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply> Owned<Reply> owned(Reply* reply) {
  return Owned<Reply>(reply, &std::free);
}

enum AtomName {
  clientList,
  clientListStacking,
  activeWindowAtom,
  closeWindowAtom,
  supported,
  windowType,
  typeDock,
  typeDesktop,
  processId,
  gtkApplicationId,
  kdeDesktopFile,
  utf8String,
  startupBegin,
  startupMore,
  timeProbe,
  currentWorkspace,
  windowWorkspace,
  atomCount
};

constexpr std::array<std::string_view, atomCount> atomNames = {"_NET_CLIENT_LIST",
                                                               "_NET_CLIENT_LIST_STACKING",
                                                               "_NET_ACTIVE_WINDOW",
                                                               "_NET_CLOSE_WINDOW",
                                                               "_NET_SUPPORTED",
                                                               "_NET_WM_WINDOW_TYPE",
                                                               "_NET_WM_WINDOW_TYPE_DOCK",
                                                               "_NET_WM_WINDOW_TYPE_DESKTOP",
                                                               "_NET_WM_PID",
                                                               "_GTK_APPLICATION_ID",
                                                               "_KDE_NET_WM_DESKTOP_FILE",
                                                               "UTF8_STRING",
                                                               "_NET_STARTUP_INFO_BEGIN",
                                                               "_NET_STARTUP_INFO",
                                                               "_TAVREL_TIME_PROBE",
                                                               "_NET_CURRENT_DESKTOP",
                                                               "_NET_WM_DESKTOP"};

/// In units of four bytes: enough for any list of windows and any text.
constexpr std::uint32_t longestProperty = 1U << 18;

std::string textOf(const xcb_get_property_reply_t* reply) {
  if (reply == nullptr || reply->format != 8)
    return {};
  return {static_cast<const char*>(xcb_get_property_value(reply)),
          static_cast<std::size_t>(xcb_get_property_value_length(reply))};
}

std::vector<std::uint32_t> numbersOf(const xcb_get_property_reply_t* reply) {
  if (reply == nullptr || reply->format != 32)
    return {};
  const auto count = static_cast<std::size_t>(xcb_get_property_value_length(reply)) / 4;
  std::vector<std::uint32_t> numbers(count);
  if (count > 0)
    std::memcpy(numbers.data(), xcb_get_property_value(reply), count * 4);
  return numbers;
}

std::string hostName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : std::string();
}

std::string upToNul(const std::string& text) {
  return text.c_str();
}

} // namespace

struct DesktopWindows::Connection {
  explicit Connection(xcb_connection_t* opened) : xcb(opened) {
    const auto screen = xcb_setup_roots_iterator(xcb_get_setup(xcb));
    root = screen.data->root;
    own = xcb_generate_id(xcb);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, own, root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, screen.data->root_visual, XCB_CW_EVENT_MASK,
                      &events);
    std::array<xcb_intern_atom_cookie_t, atomCount> cookies;
    for (std::size_t each = 0; each < atomCount; ++each)
      cookies[each] = xcb_intern_atom(xcb, 0, static_cast<std::uint16_t>(atomNames[each].size()),
                                      atomNames[each].data());
    for (std::size_t each = 0; each < atomCount; ++each)
      if (const auto reply = owned(xcb_intern_atom_reply(xcb, cookies[each], nullptr)))
        atoms[each] = reply->atom;
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() { xcb_disconnect(xcb); }

  xcb_get_property_cookie_t requestProperty(WindowId window, xcb_atom_t property) const {
    return xcb_get_property(xcb, 0, window, property, XCB_ATOM_ANY, 0, longestProperty);
  }
  Owned<xcb_get_property_reply_t> propertyReply(xcb_get_property_cookie_t cookie) const {
    return owned(xcb_get_property_reply(xcb, cookie, nullptr));
  }
  std::vector<std::uint32_t> rootNumbers(AtomName property) const {
    return numbersOf(propertyReply(requestProperty(root, atoms[property])).get());
  }
  void sendToRoot(xcb_client_message_event_t event, std::uint32_t mask) const {
    event.response_type = XCB_CLIENT_MESSAGE;
    xcb_send_event(xcb, 0, root, mask, reinterpret_cast<const char*>(&event));
  }

  xcb_connection_t* xcb;
  WindowId root = 0;
  WindowId own = 0;
  std::array<xcb_atom_t, atomCount> atoms{};
};

namespace {

bool isRunning(std::int32_t pid) {
  return pid > 0 && ::access(("/proc/" + std::to_string(pid)).c_str(), F_OK) == 0;
}

} // namespace

DesktopWindows::DesktopWindows() {
  xcb_connection_t* opened = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(opened) != 0)
    xcb_disconnect(opened);
  else
    connection_ = std::make_unique<Connection>(opened);
}

DesktopWindows::~DesktopWindows() = default;

std::vector<WindowId> DesktopWindows::windows() {
  return connection_ ? connection_->rootNumbers(clientList) : std::vector<WindowId>();
}

std::vector<WindowId> DesktopWindows::stacking() {
  return connection_ ? connection_->rootNumbers(clientListStacking) : std::vector<WindowId>();
}

WindowId DesktopWindows::activeWindow() {
  if (!connection_)
    return 0;
  const std::vector<std::uint32_t> values = connection_->rootNumbers(activeWindowAtom);
  return values.empty() ? focusedWindow(*connection_->xcb, connection_->root) : values.front();
}

bool DesktopWindows::hasKeyboard(WindowId window) {
  return connection_ && activeWindow() == window &&
         focusedWindow(*connection_->xcb, connection_->root) == window;
}

std::optional<WindowFacts> DesktopWindows::facts(WindowId window) {
  WindowFacts facts;
  if (!connection_)
    return std::nullopt;
  const Connection& x = *connection_;
  facts.client = window & ~xcb_get_setup(x.xcb)->resource_id_mask;
  const auto type = x.requestProperty(window, x.atoms[windowType]);
  const auto pid = x.requestProperty(window, x.atoms[processId]);
  const auto machine = x.requestProperty(window, XCB_ATOM_WM_CLIENT_MACHINE);
  const auto names = x.requestProperty(window, XCB_ATOM_WM_CLASS);
  const auto gtk = x.requestProperty(window, x.atoms[gtkApplicationId]);
  const auto kde = x.requestProperty(window, x.atoms[kdeDesktopFile]);

  const auto types = x.propertyReply(type);
  for (const std::uint32_t each : numbersOf(types.get()))
    if (each == x.atoms[typeDock] || each == x.atoms[typeDesktop])
      facts.kind = each == x.atoms[typeDock] ? WindowKind::dock : WindowKind::desktop;
  const std::vector<std::uint32_t> values = numbersOf(x.propertyReply(pid).get());
  const std::string host = upToNul(textOf(x.propertyReply(machine).get()));
  const bool isOfThisMachine = host.empty() || host == hostName();
  if (!values.empty() && isOfThisMachine)
    facts.pid = static_cast<std::int32_t>(values.front());
  // A sandbox numbers its processes itself: the server knows better, but not of other machines.
  if (const std::int32_t known = processOfClient(*x.xcb, window);
      known != 0 && (isOfThisMachine || !isRunning(facts.pid)))
    facts.pid = known;
  const std::string both = textOf(x.propertyReply(names).get());
  facts.instance = upToNul(both);
  if (both.size() > facts.instance.size())
    facts.windowClass = upToNul(both.substr(facts.instance.size() + 1));
  facts.applicationId = upToNul(textOf(x.propertyReply(gtk).get()));
  const std::string file = upToNul(textOf(x.propertyReply(kde).get()));
  if (facts.applicationId.empty())
    facts.applicationId = file;
  return types ? std::optional(facts) : std::nullopt;
}

// The source indication of EWMH for pagers, which act for the user.
constexpr std::uint32_t fromPager = 2;

bool DesktopWindows::requestOfManager(std::size_t request, WindowId window, std::uint32_t first,
                                      std::uint32_t second) {
  if (!connection_)
    return false;
  const Connection& x = *connection_;
  const std::vector<std::uint32_t> able = x.rootNumbers(supported);
  if (std::ranges::find(able, x.atoms[request]) == able.end())
    return false;
  xcb_client_message_event_t event{};
  event.format = 32;
  event.window = window;
  event.type = x.atoms[request];
  event.data.data32[0] = first;
  event.data.data32[1] = second;
  x.sendToRoot(event, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
  return xcb_flush(x.xcb) > 0;
}

bool DesktopWindows::activate(WindowId window) {
  showWorkspaceOf(window);
  return requestOfManager(activeWindowAtom, window, fromPager, serverTime());
}

/// For window managers that activate a window on another workspace without going there.
void DesktopWindows::showWorkspaceOf(WindowId window) {
  if (!connection_)
    return;
  const Connection& x = *connection_;
  constexpr std::uint32_t everywhere = 0xFFFFFFFF;
  const auto current = x.rootNumbers(currentWorkspace);
  const auto wanted =
      numbersOf(x.propertyReply(x.requestProperty(window, x.atoms[windowWorkspace])).get());
  if (!current.empty() && !wanted.empty() && wanted[0] != everywhere && wanted[0] != current[0])
    (void)requestOfManager(currentWorkspace, x.root, wanted[0], serverTime());
}

bool DesktopWindows::close(WindowId window) {
  return requestOfManager(closeWindowAtom, window, serverTime(), fromPager);
}

std::uint32_t DesktopWindows::serverTime() {
  if (!connection_)
    return 0;
  const Connection& x = *connection_;
  xcb_change_property(x.xcb, XCB_PROP_MODE_APPEND, x.own, x.atoms[timeProbe], XCB_ATOM_STRING, 8, 0,
                      nullptr);
  xcb_flush(x.xcb);
  while (const auto event = owned(xcb_wait_for_event(x.xcb)))
    if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY)
      return reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
  return 0;
}

void DesktopWindows::broadcastStartup(const std::string& message) {
  if (!connection_)
    return;
  const Connection& x = *connection_;
  const std::size_t length = message.size() + 1; // with the NUL at the end
  xcb_client_message_event_t event{};
  event.format = 8;
  event.window = x.own;
  for (std::size_t at = 0; at < length; at += sizeof event.data.data8) {
    event.type = x.atoms[at == 0 ? startupBegin : startupMore];
    std::memset(event.data.data8, 0, sizeof event.data.data8);
    std::memcpy(event.data.data8, message.c_str() + at,
                std::min(length - at, sizeof event.data.data8));
    x.sendToRoot(event, XCB_EVENT_MASK_PROPERTY_CHANGE);
  }
  xcb_flush(x.xcb);
}

} // namespace tavrel
