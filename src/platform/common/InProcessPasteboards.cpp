#include "platform/common/InProcessPasteboards.h"

#include <algorithm>

namespace tavrel {

namespace {

class InProcessPasteboard final : public Pasteboard {
public:
  explicit InProcessPasteboard(const PropertyListCoding& coding) : coding_(coding) {}

  std::vector<std::string> types() override { return types_; }

  void declareTypes(const std::vector<std::string>& types) override {
    types_ = types;
    data_.clear();
    ++changeCount_;
  }

  bool setData(Bytes data, const std::string& type) override {
    if (std::find(types_.begin(), types_.end(), type) == types_.end())
      return false;
    data_.insert_or_assign(type, std::move(data));
    return true;
  }

  std::optional<Bytes> data(const std::string& type) override {
    const auto found = data_.find(type);
    return found == data_.end() ? std::nullopt : std::optional(found->second);
  }

  bool setString(const std::string& text, const std::string& type) override {
    return setData(Bytes(text.begin(), text.end()), type);
  }

  std::optional<std::string> string(const std::string& type) override {
    const auto bytes = data(type);
    return bytes ? std::optional(std::string(bytes->begin(), bytes->end())) : std::nullopt;
  }

  bool setPropertyList(const PropertyList& list, const std::string& type) override {
    return setData(coding_.encode(list), type);
  }

  std::optional<PropertyList> propertyList(const std::string& type) override {
    const auto bytes = data(type);
    return bytes ? coding_.decode(*bytes) : std::nullopt;
  }

  std::int64_t changeCount() override { return changeCount_; }

private:
  const PropertyListCoding& coding_;
  std::vector<std::string> types_;
  std::map<std::string, Bytes> data_;
  std::int64_t changeCount_ = 0;
};

} // namespace

Pasteboard& InProcessPasteboards::named(const std::string& name) {
  auto& pasteboard = pasteboards_[name];
  if (!pasteboard)
    pasteboard = std::make_unique<InProcessPasteboard>(coding_);
  return *pasteboard;
}

} // namespace tavrel
