#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// Documents for one application, as URLs.
struct LaunchRequest {
  std::string applicationUrl;
  std::vector<std::string> itemUrls;
};

enum class FileOperation { move, copy };

/// Opens, moves and copies. Every operation is synchronous; opening returns once the application
/// was asked, never waits for it, and leaves no dead child behind.
class Workspace {
public:
  virtual ~Workspace() = default;

  /// Opens a file with its default application, launches an application, shows a folder. False
  /// when nothing is there or nothing can open it.
  virtual bool openFile(const std::string& path) = 0;

  /// False when the text is no URL or nothing can open it.
  virtual bool openUrl(const std::string& url) = 0;

  /// Hands the documents to that application, whatever application owns them. 0 on success, -10814
  /// when there is no such application, -10827 when it could not be started.
  virtual std::int32_t openUrlsWithApplication(const LaunchRequest& request) = 0;

  /// Moves or copies `names` from the source folder into the destination folder: all or nothing.
  /// Never overwrites, loses or leaves half a file; false when it was not done.
  virtual bool performFileOperation(FileOperation operation, const std::string& source,
                                    const std::string& destination,
                                    const std::vector<std::string>& names) = 0;

  /// Removes a file, or a folder with everything in it; a link goes alone. False when nothing is
  /// there or something of it stays.
  virtual bool removeFile(const std::string& path) = 0;

  /// The system's version as a BCD number, as 0x1068 for 10.6.8.
  [[nodiscard]] virtual std::int32_t systemVersion() = 0;
};

} // namespace tavrel
