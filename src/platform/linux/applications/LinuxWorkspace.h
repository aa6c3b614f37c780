#pragma once

#include "platform/Workspace.h"
#include "platform/linux/applications/ApplicationLauncher.h"

#include <optional>

namespace tavrel {

class ApplicationRegistry;

/// Opens by desktop entries and the user's choices in mimeapps.list. Applications are
/// desktop entries, AppDirs (folders with a program AppRun) and programs. "/Volumes/NAME/" opens
/// the network place of that name (see NetworkPlaces.h). Each refusal is a line under the
/// logging category tavrel.workspace.
class LinuxWorkspace final : public Workspace {
public:
  /// Both must outlive the workspace.
  LinuxWorkspace(ApplicationRegistry& registry, DesktopWindows& windows)
      : registry_(registry), launcher_(windows) {}

  /// Finishes transfers that were under way when the program was killed, and logs what it found.
  /// Beside the caller: a share may not answer.
  static void finishInterruptedTransfers();

  bool openFile(const std::string& path) override;
  bool openUrl(const std::string& url) override;
  std::int32_t openUrlsWithApplication(const LaunchRequest& request) override;
  bool performFileOperation(FileOperation operation, const std::string& source,
                            const std::string& destination,
                            const std::vector<std::string>& names) override;
  bool removeFile(const std::string& path) override;
  /// 10.6.8: the newest system whose behaviour this desktop offers.
  [[nodiscard]] std::int32_t systemVersion() override;

private:
  /// Why opening failed, as a clause for one line; nothing when it did not.
  using Refusal = std::optional<std::string>;

  Refusal open(const std::string& path);
  Refusal openPlace(const std::string& url);
  Refusal openEntry(const std::string& path, const std::vector<std::string>& urls);
  Refusal openWithHandler(const std::vector<std::string>& mimeTypes, const std::string& url);
  Refusal launch(const DesktopEntry& entry, const std::string& path,
                 const std::vector<std::string>& urls);

  ApplicationRegistry& registry_;
  ApplicationLauncher launcher_;
};

} // namespace tavrel
