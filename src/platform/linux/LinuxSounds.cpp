#include "platform/linux/LinuxSounds.h"

#include "base/PathString.h"

#include <QApplication>
#include <QLoggingCategory>
#include <canberra.h>

#include <filesystem>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(soundsLog, "tavrel.sounds")
constexpr std::uint32_t anySound = 0;
} // namespace

LinuxSounds::LinuxSounds(const std::string& resourceFolder) : folder_(resourceFolder + "/sounds") {
  if (ca_context_create(&context_) != CA_SUCCESS) {
    qCWarning(soundsLog, "no sounds can be played");
    context_ = nullptr;
    return;
  }
  ca_context_change_props(context_, CA_PROP_APPLICATION_NAME, "Tavrel", CA_PROP_APPLICATION_ID,
                          "qorvane.tavrel.Tavrel", nullptr);
}

LinuxSounds::~LinuxSounds() {
  if (context_)
    ca_context_destroy(context_);
}

bool LinuxSounds::send(const char* property, const std::string& value) {
  if (!context_)
    return true;
  const int status = ca_context_play(context_, anySound, property, value.c_str(), nullptr);
  return status != CA_ERROR_NOTFOUND;
}

bool LinuxSounds::play(const std::string& name) {
  const std::string plain = deletingPathExtension(name);
  const std::string file = appendingPathComponent(folder_, plain + ".wav");
  std::error_code ignored;
  if (!plain.empty() && std::filesystem::is_regular_file(file, ignored)) {
    send(CA_PROP_MEDIA_FILENAME, file);
    return true;
  }
  return !plain.empty() && context_ && send(CA_PROP_EVENT_ID, plain);
}

void LinuxSounds::beep() {
  if (!context_ || !send(CA_PROP_EVENT_ID, "bell"))
    QApplication::beep();
}

} // namespace tavrel
