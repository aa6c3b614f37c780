#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tavrel {

/// Cuts a stream of bytes into lines; one that is too long is told in pieces.
class LineSplitter {
public:
  explicit LineSplitter(const std::function<void(const std::string&)>& report) : report_(report) {}

  void add(std::string_view bytes);
  /// Tells what stands after the last line feed.
  void finish();

private:
  void tell();

  const std::function<void(const std::string&)>& report_;
  std::string line_;
  bool isCut_ = false; ///< part of the line was told
};

} // namespace tavrel
