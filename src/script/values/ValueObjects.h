#pragma once

#include "script/values/Heap.h"
#include "script/values/Value.h"

#include <vector>

namespace tavrel::script {

/// A text in well-formed UTF-8, which does not change once others hold it. Its characters are code
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
  /// The byte at which a character starts; characters count from 0, and length() gives the end. The
  /// character after the one that was asked for last is found without a walk from the start.
  [[nodiscard]] std::size_t offsetOf(std::size_t character) const;
  /// Only while nobody else holds the text.
  void append(std::string_view more);

private:
  Heap& heap_;
  std::string value_;
  mutable std::size_t length_ = std::string::npos; ///< npos while not counted
  struct Position {
    std::size_t character = 0;
    std::size_t offset = 0;
  };
  mutable Position last_; ///< that was asked for
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

/// Values with labels, in the order in which they were added.
class Record final : public Container {
public:
  static constexpr ValueKind valueKind = ValueKind::record;
  using Entry = std::pair<const std::string*, Value>; ///< the label is a symbol (see Value.h)
  Record(Heap& heap, std::vector<Entry> entries);
  ~Record() override;
  void empty() override;

  [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
  /// Null without such a label.
  [[nodiscard]] const Value* find(const std::string* label) const;
  /// Replaces the value of that label, or adds one.
  void set(const std::string* label, Value value);

private:
  std::vector<Entry> entries_;
};

/// Seconds since 2001-01-01 00:00 of the local calendar; scripts may set its components.
class Date final : public Object {
public:
  static constexpr ValueKind valueKind = ValueKind::date;
  explicit Date(double local) : Object(valueKind), seconds(local) {}
  double seconds;
};

/// A file by its POSIX path; an alias is one that was there when the script named it.
class File final : public Object {
public:
  static constexpr ValueKind valueKind = ValueKind::file;
  File(std::string filePath, bool isKnown)
      : Object(valueKind), path(std::move(filePath)), isAlias(isKnown) {}
  const std::string path;
  const bool isAlias;
};

} // namespace tavrel::script
