#include "script/storage/SyntaxTreeCodec.h"

#include "base/Utf8.h"

#include <bit>

namespace tavrel::script {
namespace {

constexpr int deepestTree = 2 * highestExpression;

class Writer {
public:
  void node(const Node& node) {
    bytes.push_back(static_cast<std::uint8_t>(node.kind));
    number(node.span.start);
    number(node.span.length);
    if (node.kind == NodeKind::integer || node.kind == NodeKind::boolean)
      number(std::bit_cast<std::uint64_t>(node.integer));
    if (node.kind == NodeKind::real)
      number(std::bit_cast<std::uint64_t>(node.real));
    number(node.text.size());
    bytes.insert(bytes.end(), node.text.begin(), node.text.end());
    number(node.children.size());
    for (const Node& child : node.children)
      this->node(child);
  }

  Bytes bytes;

private:
  // Seven bits in each byte, the lowest first; the high bit says that another byte follows.
  void number(std::uint64_t value) {
    for (; value >= 0x80; value >>= 7U)
      bytes.push_back(static_cast<std::uint8_t>(value | 0x80U));
    bytes.push_back(static_cast<std::uint8_t>(value));
  }
};

class Reader {
public:
  explicit Reader(const Bytes& bytes) : bytes_(bytes) {}

  bool node(Node& node, int depth) {
    std::uint8_t kind = 0;
    std::uint64_t start = 0;
    std::uint64_t length = 0;
    if (depth > deepestTree || !byte(kind) || kind > static_cast<std::uint8_t>(NodeKind::last) ||
        !number(start) || !number(length))
      return false;
    node.kind = static_cast<NodeKind>(kind);
    node.span = {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(length)};
    return value(node) && text(node.text) && children(node, depth);
  }

  [[nodiscard]] bool isAtEnd() const { return at_ == bytes_.size(); }

private:
  bool byte(std::uint8_t& value) {
    if (at_ >= bytes_.size())
      return false;
    value = bytes_[at_++];
    return true;
  }

  bool number(std::uint64_t& value) {
    std::uint8_t next = 0x80;
    for (unsigned shift = 0; (next & 0x80U) != 0; shift += 7) {
      if (shift > 63 || !byte(next))
        return false;
      value |= static_cast<std::uint64_t>(next & 0x7FU) << shift;
    }
    return true;
  }

  bool value(Node& node) {
    std::uint64_t bits = 0;
    if (node.kind == NodeKind::integer || node.kind == NodeKind::boolean) {
      const bool read = number(bits);
      node.integer = std::bit_cast<std::int64_t>(bits);
      return read;
    }
    if (node.kind != NodeKind::real)
      return true;
    const bool read = number(bits);
    node.real = std::bit_cast<double>(bits);
    return read;
  }

  bool text(std::string& text) {
    std::uint64_t size = 0;
    if (!number(size) || size > bytes_.size() - at_)
      return false;
    text.assign(reinterpret_cast<const char*>(bytes_.data()) + at_, size);
    at_ += size;
    return isUtf8(text);
  }

  bool children(Node& node, int depth) {
    std::uint64_t count = 0;
    if (!number(count) || count > bytes_.size() - at_)
      return false;
    for (std::uint64_t i = 0; i < count; ++i)
      if (!this->node(node.children.emplace_back(), depth + 1))
        return false;
    return true;
  }

  const Bytes& bytes_;
  std::size_t at_ = 0;
};

} // namespace

Bytes encodeTree(const Node& tree) {
  Writer writer;
  writer.node(tree);
  return std::move(writer.bytes);
}

std::optional<Node> decodeTree(const Bytes& bytes) {
  Reader reader(bytes);
  Node result;
  if (!reader.node(result, 0) || !reader.isAtEnd())
    return std::nullopt;
  return result;
}

} // namespace tavrel::script
