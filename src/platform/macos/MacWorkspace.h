#pragma once

#include "platform/Workspace.h"

namespace tavrel {

/// The system's own launching, and files moved by names that refuse to be taken twice.
class MacWorkspace final : public Workspace {
public:
  bool openFile(const std::string& path) override;
  bool openUrl(const std::string& url) override;
  std::int32_t openUrlsWithApplication(const LaunchRequest& request) override;
  bool performFileOperation(FileOperation operation, const std::string& source,
                            const std::string& destination,
                            const std::vector<std::string>& names) override;
  bool removeFile(const std::string& path) override;
  [[nodiscard]] std::int32_t systemVersion() override;
};

} // namespace tavrel
