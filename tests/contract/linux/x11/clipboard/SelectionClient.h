#pragma once

#include "base/PropertyList.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <poll.h>
#include <string>
#include <thread>
#include <utility>
#include <vector>
#include <xcb/xcb.h>

namespace tavrel {

inline Bytes bytesOfText(const std::string& text) {
  return {text.begin(), text.end()};
}

/// Another program's connection to the X server, with a window.
class SelectionClient {
public:
  SelectionClient() : server(xcb_connect(nullptr, nullptr)) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(server)).data;
    window = xcb_generate_id(server);
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(server, 0, window, screen->root, 0, 0, 20, 20, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    sync();
  }
  ~SelectionClient() { close(); }
  SelectionClient(const SelectionClient&) = delete;
  SelectionClient& operator=(const SelectionClient&) = delete;

  void close() {
    if (server)
      xcb_disconnect(std::exchange(server, nullptr));
  }
  xcb_atom_t atom(const std::string& name) const {
    const std::scoped_lock lock(atomsMutex_);
    if (const auto known = atoms_.find(name); known != atoms_.end())
      return known->second;
    auto* reply = xcb_intern_atom_reply(
        server, xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr);
    const xcb_atom_t found = reply->atom;
    std::free(reply);
    return atoms_[name] = found;
  }
  std::string name(xcb_atom_t atom) const {
    auto* reply = xcb_get_atom_name_reply(server, xcb_get_atom_name(server, atom), nullptr);
    const std::string found =
        reply ? std::string(xcb_get_atom_name_name(reply),
                            static_cast<std::size_t>(xcb_get_atom_name_name_length(reply)))
              : std::string();
    std::free(reply);
    return found;
  }
  xcb_window_t owner(const char* selection = "CLIPBOARD") const {
    auto* reply = xcb_get_selection_owner_reply(
        server, xcb_get_selection_owner(server, atom(selection)), nullptr);
    const xcb_window_t found = reply->owner;
    std::free(reply);
    return found;
  }
  void own(const char* selection = "CLIPBOARD") const {
    xcb_set_selection_owner(server, window, atom(selection), XCB_CURRENT_TIME);
    sync();
  }
  /// Grabs the server: no other client is served until the release, but all get their events.
  void grabServer() const {
    xcb_grab_server(server);
    sync();
  }
  void ungrabServer() const {
    xcb_ungrab_server(server);
    sync();
  }
  void takeFocus() const {
    xcb_map_window(server, window);
    sync();
    xcb_set_input_focus(server, XCB_INPUT_FOCUS_NONE, window, XCB_CURRENT_TIME);
    sync();
  }
  void sync() const {
    std::free(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
  }

  xcb_connection_t* server;
  xcb_window_t window;

private:
  mutable std::mutex atomsMutex_;
  mutable std::map<std::string, xcb_atom_t> atoms_;
};

/// The value of a property.
struct Property {
  std::string type;
  std::uint8_t format = 0;
  Bytes bytes;
  friend bool operator==(const Property&, const Property&) = default;
};

inline Property textProperty(const std::string& type, const std::string& text) {
  return {type, 8, bytesOfText(text)};
}

/// Reads the clipboard as any program does: independent of the code under test.
class SelectionPaster : public SelectionClient {
public:
  /// Nothing when the owner refuses, or says nothing for some seconds.
  std::optional<Property> paste(const std::string& target, const char* selection = "CLIPBOARD") {
    const xcb_atom_t property = atom("PASTED");
    xcb_convert_selection(server, window, atom(selection), atom(target), property,
                          XCB_CURRENT_TIME);
    const auto answer = await([](const xcb_generic_event_t& event) {
      return (event.response_type & 0x7F) == XCB_SELECTION_NOTIFY;
    });
    if (!answer || reinterpret_cast<xcb_selection_notify_event_t&>(*answer).property == 0)
      return std::nullopt;
    Property pasted = take(property);
    if (pasted.type != "INCR")
      return pasted;
    Property whole;
    for (;;) {
      if (!awaitValue(property))
        return std::nullopt;
      Property piece = take(property);
      whole.type = piece.type;
      whole.format = piece.format;
      if (piece.bytes.empty())
        return whole;
      whole.bytes.insert(whole.bytes.end(), piece.bytes.begin(), piece.bytes.end());
    }
  }

  /// Without what every owner adds.
  std::vector<std::string> targets() {
    std::vector<std::string> names;
    const auto list = paste("TARGETS");
    for (std::size_t at = 0; list && at + 4 <= list->bytes.size(); at += 4) {
      xcb_atom_t each = 0;
      std::memcpy(&each, list->bytes.data() + at, 4);
      const std::string word = name(each);
      if (word != "TARGETS" && word != "TIMESTAMP" && word != "MULTIPLE")
        names.push_back(word);
    }
    return names;
  }

private:
  template <typename IsIt> std::shared_ptr<xcb_generic_event_t> await(IsIt isIt) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    xcb_flush(server);
    while (std::chrono::steady_clock::now() < deadline) {
      std::shared_ptr<xcb_generic_event_t> event(xcb_poll_for_event(server), std::free);
      if (event && isIt(*event))
        return event;
      if (!event) {
        pollfd source{xcb_get_file_descriptor(server), POLLIN, 0};
        ::poll(&source, 1, 20);
      }
    }
    return nullptr;
  }
  bool awaitValue(xcb_atom_t property) {
    return await([&](const xcb_generic_event_t& event) {
             const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
             return (event.response_type & 0x7F) == XCB_PROPERTY_NOTIFY &&
                    notice.atom == property && notice.state == XCB_PROPERTY_NEW_VALUE;
           }) != nullptr;
  }
  Property take(xcb_atom_t property) {
    // Notices of this very value are in the queue already, and not of the pieces to come.
    sync();
    while (auto* event = xcb_poll_for_event(server))
      std::free(event);
    auto* reply = xcb_get_property_reply(
        server,
        xcb_get_property(server, 1, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1U << 28U),
        nullptr);
    const auto* bytes = static_cast<const std::uint8_t*>(xcb_get_property_value(reply));
    Property found{name(reply->type), reply->format,
                   Bytes(bytes, bytes + xcb_get_property_value_length(reply))};
    std::free(reply);
    return found;
  }
};

/// How a program answers a request for one target.
enum class Manner {
  atOnce,
  inPieces,
  never, ///< no answer at all
  refuses,
  stopsMidway, ///< after the first piece
  diesMidway,
  endsOddly,        ///< with an empty piece of another type
  announcesTooMuch, ///< four gigabytes, but sends a few bytes
  copiesAgain,      ///< owns the clipboard anew, with other contents, before it answers
};

struct OwnedTarget {
  std::string name;
  Property property;
  Manner manner = Manner::atOnce;
};

inline OwnedTarget plain(const std::string& name, const std::string& text,
                         Manner manner = Manner::atOnce) {
  return {name, textProperty(name, text), manner};
}

/// A program that owns the clipboard, on a thread of its own; it answers in the manners given.
class SelectionOwner : public SelectionClient {
public:
  explicit SelectionOwner(std::vector<OwnedTarget> targets, Manner list = Manner::atOnce)
      : targets_(std::move(targets)), list_(list), thread_([this] { run(); }) {
    (void)this->list(); // its names are known from now on
    own();
  }
  ~SelectionOwner() {
    isOver_ = true;
    thread_.join();
  }
  bool isOwner() const { return owner() == window; }
  void copy(std::vector<OwnedTarget> targets) {
    setTargets(std::move(targets));
    own();
  }
  /// What it will own when it copies again while it is being read.
  std::vector<OwnedTarget> next;

private:
  void setTargets(std::vector<OwnedTarget> targets) {
    const std::scoped_lock lock(mutex_);
    targets_ = std::move(targets);
  }
  std::vector<OwnedTarget> targets() {
    const std::scoped_lock lock(mutex_);
    return targets_;
  }
  void run() {
    while (!isOver_) {
      xcb_flush(server);
      if (auto* event = xcb_poll_for_event(server)) {
        handle(*event);
        std::free(event);
      } else {
        pollfd source{xcb_get_file_descriptor(server), POLLIN, 0};
        ::poll(&source, 1, 5);
      }
      if (dies_)
        return diesNow();
    }
  }
  void diesNow() { xcb_kill_client(server, window), xcb_flush(server); }
  void handle(const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7F) == XCB_SELECTION_REQUEST)
      request(reinterpret_cast<const xcb_selection_request_event_t&>(event));
    if ((event.response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
      return;
    const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    const auto send = sends_.find({notice.window, notice.atom});
    if (notice.state == XCB_PROPERTY_DELETE && send != sends_.end())
      piece(notice.window, notice.atom, send->second);
  }
  void request(const xcb_selection_request_event_t& event) {
    const std::string wanted = name(event.target);
    if (wanted == "TARGETS")
      return answer(event, list(), list_);
    for (const OwnedTarget& each : targets())
      if (each.name == wanted)
        return answer(event, each.property, each.manner);
    notify(event, 0);
  }
  Property list() {
    std::vector<xcb_atom_t> atoms{atom("TIMESTAMP"), atom("TARGETS"), atom("MULTIPLE"),
                                  atom("SAVE_TARGETS")};
    for (const OwnedTarget& each : targets())
      atoms.push_back(atom(each.name));
    Property property{"ATOM", 32, Bytes(atoms.size() * 4)};
    std::memcpy(property.bytes.data(), atoms.data(), property.bytes.size());
    return property;
  }
  void answer(const xcb_selection_request_event_t& event, const Property& property, Manner manner) {
    if (manner == Manner::never)
      return;
    if (manner == Manner::copiesAgain)
      copy(next);
    if (manner == Manner::refuses)
      return notify(event, 0);
    if (manner == Manner::atOnce || manner == Manner::copiesAgain)
      put(event.requestor, event.property, property, 0, property.bytes.size());
    else
      begin(event, property, manner);
    notify(event, event.property);
  }
  struct Send {
    Property property;
    Manner manner;
    std::size_t offset;
  };
  void begin(const xcb_selection_request_event_t& event, const Property& property, Manner manner) {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(server, event.requestor, XCB_CW_EVENT_MASK, &events);
    const std::uint32_t size = manner == Manner::announcesTooMuch ? 0xFFFFFFFF : 1;
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, event.requestor, event.property,
                        atom("INCR"), 32, 1, &size);
    sends_[{event.requestor, event.property}] = {property, manner, 0};
  }
  void piece(xcb_window_t requestor, xcb_atom_t property, Send& send) {
    const std::size_t size =
        std::min<std::size_t>(send.property.bytes.size() - send.offset, 100'000);
    if (send.offset > 0 && send.manner == Manner::stopsMidway)
      return;
    dies_ = send.offset > 0 && send.manner == Manner::diesMidway;
    const bool isOdd = size == 0 && send.manner == Manner::endsOddly;
    const Property odd = textProperty("STRING", "");
    put(requestor, property, isOdd ? odd : send.property, send.offset, size); // none is copied
    send.offset += size;
    if (size == 0)
      sends_.erase({requestor, property});
  }
  void put(xcb_window_t requestor, xcb_atom_t to, const Property& property, std::size_t from,
           std::size_t size) {
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, requestor, to, atom(property.type),
                        property.format, static_cast<std::uint32_t>(size / (property.format / 8U)),
                        property.bytes.data() + from);
  }
  void notify(const xcb_selection_request_event_t& event, xcb_atom_t property) {
    char bytes[32] = {};
    auto& notice = reinterpret_cast<xcb_selection_notify_event_t&>(bytes);
    notice.response_type = XCB_SELECTION_NOTIFY;
    notice.requestor = event.requestor;
    notice.selection = event.selection;
    notice.target = event.target;
    notice.property = property;
    notice.time = event.time;
    xcb_send_event(server, 0, event.requestor, 0, bytes);
  }

  std::mutex mutex_;
  std::vector<OwnedTarget> targets_;
  Manner list_;
  std::map<std::pair<xcb_window_t, xcb_atom_t>, Send> sends_;
  bool dies_ = false;
  std::atomic<bool> isOver_ = false;
  std::thread thread_;
};

} // namespace tavrel
