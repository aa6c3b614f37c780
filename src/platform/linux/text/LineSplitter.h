#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tavrel {

/// Splits a stream of bytes into lines; one over 4096 bytes is reported as several.
class LineSplitter {
public:
  explicit LineSplitter(const std::function<void(const std::string&)>& report) : report_(report) {}

  void add(std::string_view bytes);
  /// Reports what stands after the last line feed.
  void finish();

private:
  void reportLine();

  const std::function<void(const std::string&)>& report_;
  std::string line_;
  bool isCut_ = false; ///< the start of this line was reported already
};

} // namespace tavrel
