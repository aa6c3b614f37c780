#include "platform/linux/plists/PropertyListBinaryCheck.h"

#include "platform/linux/plists/PropertyListCodec.h"

#include <algorithm>
#include <span>

namespace tavrel {

namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;
// Objects may be referred to more than once, so that a few hundred bytes can unfold to millions of
// values, and to seconds of reading. This many values more than the file has objects are allowed.
constexpr std::uint64_t mostRepeatedValues = 500'000;

// The markers of the format: the high half of an object's first byte.
enum Marker : std::uint8_t {
  simple = 0x0,
  integer = 0x1,
  real = 0x2,
  date = 0x3,
  data = 0x4,
  ascii = 0x5,
  utf16 = 0x6,
  array = 0xA,
  dictionary = 0xD,
};

struct Object {
  std::uint8_t marker = 0;
  std::uint64_t count = 0;  ///< bytes, UTF-16 units, elements or entries
  std::size_t contents = 0; ///< where they start
};

class BinaryChecker {
public:
  explicit BinaryChecker(const Bytes& bytes) : bytes_(bytes) {}

  std::string problem() {
    if (!readTrailer())
      return "has a broken trailer";
    depths_.assign(objectCount_, 0);
    sizes_.assign(objectCount_, 0);
    return walk();
  }

private:
  // A container on the way from the top object, and how far its children are checked.
  struct Visit {
    std::uint64_t number = 0;
    std::vector<std::uint64_t> children;
    std::size_t next = 0;
  };
  static constexpr std::uint32_t beingVisited = ~std::uint32_t{0};

  [[nodiscard]] std::uint64_t bigEndian(std::size_t at, std::size_t size) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
      value = (value << 8) | bytes_[at + i];
    return value;
  }

  bool readTrailer() {
    if (bytes_.size() < headerSize + trailerSize)
      return false;
    const std::size_t trailer = bytes_.size() - trailerSize;
    offsetSize_ = bytes_[trailer + 6];
    referenceSize_ = bytes_[trailer + 7];
    objectCount_ = bigEndian(trailer + 8, 8);
    topObject_ = bigEndian(trailer + 16, 8);
    offsetTable_ = bigEndian(trailer + 24, 8);
    if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8)
      return false;
    return offsetTable_ >= headerSize && offsetTable_ <= trailer && topObject_ < objectCount_ &&
           objectCount_ <= (trailer - offsetTable_) / offsetSize_;
  }

  // Nothing when the object does not stand whole before the offset table.
  [[nodiscard]] std::optional<Object> objectAt(std::uint64_t number) const {
    const std::uint64_t offset = bigEndian(offsetTable_ + number * offsetSize_, offsetSize_);
    if (offset < headerSize || offset >= offsetTable_)
      return std::nullopt;
    Object object{static_cast<std::uint8_t>(bytes_[offset] >> 4), bytes_[offset] & 0x0FU,
                  static_cast<std::size_t>(offset) + 1};
    const bool counted = object.marker >= data;
    if (counted && object.count == 0x0F && !readCount(object))
      return std::nullopt;
    return fits(object) ? std::optional(object) : std::nullopt;
  }

  bool readCount(Object& object) const {
    if (object.contents >= offsetTable_ || bytes_[object.contents] >> 4 != integer)
      return false;
    const std::size_t size = std::size_t{1} << (bytes_[object.contents] & 0x0FU);
    if (size > 8 || object.contents + 1 + size > offsetTable_)
      return false;
    object.count = bigEndian(object.contents + 1, size);
    object.contents += 1 + size;
    return true;
  }

  [[nodiscard]] bool fits(const Object& object) const {
    const std::uint64_t room = offsetTable_ - object.contents;
    switch (object.marker) {
    case simple:
      return object.count == 8 || object.count == 9;
    case integer:
      return object.count <= 3 && (std::uint64_t{1} << object.count) <= room;
    case real:
      return (object.count == 2 || object.count == 3) && (std::uint64_t{1} << object.count) <= room;
    case date:
      return object.count == 3 && room >= 8;
    case data:
      return object.count <= room;
    case ascii:
      return object.count <= room && isAscii(object);
    case utf16:
      return object.count <= room / 2 && isUtf16(object);
    case array:
      return object.count <= room / referenceSize_;
    case dictionary:
      return object.count <= room / referenceSize_ / 2;
    default:
      return false;
    }
  }

  // libplist 2.2 ends the program over a text with a NUL in it.
  [[nodiscard]] bool isAscii(const Object& object) const {
    const auto start = bytes_.begin() + static_cast<std::ptrdiff_t>(object.contents);
    return std::all_of(start, start + static_cast<std::ptrdiff_t>(object.count),
                       [](std::uint8_t byte) { return byte != 0 && byte < 0x80; });
  }

  // Surrogates come in pairs, the high one first.
  [[nodiscard]] bool isUtf16(const Object& object) const {
    bool pending = false;
    for (std::size_t i = 0; i < object.count; ++i) {
      const std::uint64_t unit = bigEndian(object.contents + 2 * i, 2);
      const bool low = unit >= 0xDC00 && unit < 0xE000;
      if (low != pending || unit == 0)
        return false;
      pending = unit >= 0xD800 && unit < 0xDC00;
    }
    return !pending;
  }

  // The object numbers of a container's children, in a dictionary first the keys, then the values.
  // Nothing when one of them is no object, or a key no text.
  [[nodiscard]] std::optional<std::vector<std::uint64_t>> childrenOf(const Object& object) const {
    const bool isDictionary = object.marker == dictionary;
    if (!isDictionary && object.marker != array)
      return std::vector<std::uint64_t>();
    std::vector<std::uint64_t> children(object.count * (isDictionary ? 2 : 1));
    for (std::size_t i = 0; i < children.size(); ++i) {
      children[i] = bigEndian(object.contents + i * referenceSize_, referenceSize_);
      if (children[i] >= objectCount_ || (isDictionary && i < object.count && !isText(children[i])))
        return std::nullopt;
    }
    return children;
  }

  [[nodiscard]] bool isText(std::uint64_t number) const {
    const auto object = objectAt(number);
    return object && (object->marker == ascii || object->marker == utf16);
  }

  bool enter(std::uint64_t number) {
    const auto object = objectAt(number);
    auto children = object ? childrenOf(*object) : std::nullopt;
    if (!children)
      return false;
    depths_[number] = beingVisited;
    path_.push_back({number, *std::move(children)});
    return true;
  }

  std::string walk() {
    if (!enter(topObject_))
      return "refers to what is not there";
    while (!path_.empty()) {
      Visit& visit = path_.back();
      if (visit.next == visit.children.size()) {
        if (!leave())
          return "nests too deep or unfolds to too many values";
        continue;
      }
      const std::uint64_t child = visit.children[visit.next++];
      if (depths_[child] == beingVisited)
        return "refers to itself";
      if (depths_[child] == 0 && !enter(child))
        return "refers to what is not there";
    }
    return {};
  }

  // Depth and size of a container follow from those of its children, so that each object is checked
  // once, however often it is referred to.
  bool leave() {
    const Visit visit = std::move(path_.back());
    path_.pop_back();
    std::uint32_t depth = 0;
    std::uint64_t size = 1;
    for (std::uint64_t child : visit.children) {
      depth = std::max(depth, depths_[child]);
      size += sizes_[child];
      if (size > mostRepeatedValues + objectCount_)
        return false;
    }
    depths_[visit.number] = depth + 1;
    sizes_[visit.number] = size;
    return depth <= deepestPropertyList;
  }

  const Bytes& bytes_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::uint64_t objectCount_ = 0;
  std::uint64_t topObject_ = 0;
  std::uint64_t offsetTable_ = 0;
  std::vector<std::uint32_t> depths_; ///< by object number; 0: not visited yet
  std::vector<std::uint64_t> sizes_;  ///< how many values an object unfolds to
  std::vector<Visit> path_;
};

} // namespace

std::string problemOfBinaryPropertyList(const Bytes& bytes) {
  return BinaryChecker(bytes).problem();
}

} // namespace tavrel
