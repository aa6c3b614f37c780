#pragma once

#include "script/values/Heap.h"
#include "script/values/Value.h"

#include <vector>

namespace tavrel::script {

/// A text, well-formed UTF-8; it never changes once others can see it. Its characters are code
/// points.
class Text final : public Object {
public:
  static constexpr ValueKind valueKind = ValueKind::text;
  Text(Heap& heap, std::string value);
  ~Text() override;

  [[nodiscard]] const std::string& value() const { return value_; }
  /// In characters.
  [[nodiscard]] std::size_t length() const;
  [[nodiscard]] bool isAscii() const { return length() == value_.size(); }
  /// The byte that a character from 0 up to length() starts at. To go from one to the next is
  /// quick wherever they are.
  [[nodiscard]] std::size_t offsetOf(std::size_t character) const;
  /// For an owner that nobody shares it with.
  void append(std::string_view more);

private:
  Heap& heap_;
  std::string value_;
  mutable std::size_t length_ = std::string::npos; ///< npos while not counted
  struct Place {
    std::size_t character = 0;
    std::size_t offset = 0;
  };
  mutable Place place_; ///< that was asked for last
};

class List final : public Container {
public:
  static constexpr ValueKind valueKind = ValueKind::list;
  List(Heap& heap, std::vector<Value> values);
  ~List() override;
  void empty() override;

  [[nodiscard]] const std::vector<Value>& values() const { return values_; }
  [[nodiscard]] std::size_t size() const { return values_.size(); }
  void append(Value value);
  void insertFirst(Value value);
  /// `index` from 0, below size().
  void replace(std::size_t index, Value value) { values_[index] = std::move(value); }

private:
  std::vector<Value> values_;
};

/// Labels, in lower case, with values, in the order in which they came.
class Record final : public Container {
public:
  static constexpr ValueKind valueKind = ValueKind::record;
  using Entry = std::pair<const std::string*, Value>; ///< the label is a symbol
  Record(Heap& heap, std::vector<Entry> entries);
  ~Record() override;
  void empty() override;

  [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
  /// Null without such a label.
  [[nodiscard]] const Value* find(const std::string* label) const;
  void set(const std::string* label, Value value);

private:
  std::vector<Entry> entries_;
};

/// Seconds since 2001-01-01 00:00 of the local calendar; scripts may set its parts.
class Date final : public Object {
public:
  static constexpr ValueKind valueKind = ValueKind::date;
  explicit Date(double local) : Object(valueKind), seconds(local) {}
  double seconds;
};

/// A file by its POSIX path; an alias is one that existed when it was named.
class File final : public Object {
public:
  static constexpr ValueKind valueKind = ValueKind::file;
  File(std::string filePath, bool isKnown)
      : Object(valueKind), path(std::move(filePath)), isAlias(isKnown) {}
  const std::string path;
  const bool isAlias;
};

} // namespace tavrel::script
