#pragma once

#include "platform/Pasteboards.h"

#include <map>
#include <memory>
#include <string>

namespace tavrel {

/// The pasteboards of the session. Other programs can open named ones by the name, as services need
/// to.
class MacPasteboards final : public Pasteboards {
public:
  MacPasteboards();
  MacPasteboards(const MacPasteboards&) = delete;
  MacPasteboards& operator=(const MacPasteboards&) = delete;
  /// Takes the named ones away from the session.
  ~MacPasteboards() override;

  Pasteboard& named(const std::string& name) override;
  Pasteboard& general() override { return *general_; }

private:
  std::unique_ptr<Pasteboard> general_;
  std::map<std::string, std::unique_ptr<Pasteboard>> named_;
};

} // namespace tavrel
