#pragma once

#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tavrel {

using Bytes = std::vector<std::uint8_t>;

template <typename Number>
concept IntegerOfAList = std::integral<Number> && !std::same_as<Number, bool>;

/// One value of a property list: immutable, cheap to copy. Copies of an array, a dictionary or data
/// share one object, so that a menu entry can hold the very record it was built from.
/// Booleans and integers are different values: true is not 1.
class PropertyList {
public:
  using Array = std::vector<PropertyList>;
  using Dictionary = std::map<std::string, PropertyList, std::less<>>;

  /// Seconds since 2001-01-01 00:00 GMT.
  struct Date {
    double seconds = 0;
    friend bool operator==(const Date&, const Date&) = default;
  };

  enum class Kind { boolean, integer, real, string, data, date, array, dictionary };

  PropertyList(std::same_as<bool> auto value) : value_(value) {}
  PropertyList(IntegerOfAList auto value) : value_(static_cast<std::int64_t>(value)) {}
  PropertyList(std::floating_point auto value) : value_(static_cast<double>(value)) {}
  PropertyList(std::string value) : value_(std::move(value)) {}
  PropertyList(std::string_view value) : value_(std::string(value)) {}
  PropertyList(const char* value) : value_(std::string(value)) {}
  PropertyList(Bytes value);
  PropertyList(Date value) : value_(value) {}
  PropertyList(Array value);
  PropertyList(Dictionary value);

  PropertyList(const PropertyList&) = default;
  PropertyList(PropertyList&&) noexcept = default;
  PropertyList& operator=(const PropertyList& other);
  PropertyList& operator=(PropertyList&& other) noexcept;
  /// Takes nested values apart one by one, so that the depth of a tree never costs stack.
  ~PropertyList();

  [[nodiscard]] Kind kind() const { return static_cast<Kind>(value_.index()); }

  /// Each getter answers for its own kind alone: nothing (or null) for every other.
  [[nodiscard]] std::optional<bool> boolean() const;
  [[nodiscard]] std::optional<std::int64_t> integer() const;
  [[nodiscard]] std::optional<double> real() const;
  [[nodiscard]] std::optional<Date> date() const;
  [[nodiscard]] const std::string* string() const { return std::get_if<std::string>(&value_); }
  [[nodiscard]] const Bytes* data() const;
  [[nodiscard]] const Array* array() const;
  [[nodiscard]] const Dictionary* dictionary() const;

  /// The value under a key of a dictionary; null for a missing key and for every other kind.
  [[nodiscard]] const PropertyList* find(std::string_view key) const;
  /// The string under a key; null when missing or of another kind.
  [[nodiscard]] const std::string* stringFor(std::string_view key) const;
  /// The array under a key; null when missing or of another kind.
  [[nodiscard]] const Array* arrayFor(std::string_view key) const;
  /// The data under a key; null when missing or of another kind.
  [[nodiscard]] const Bytes* dataFor(std::string_view key) const;

  /// Whether both are copies of one array, dictionary or data; false for the other kinds.
  [[nodiscard]] bool isSameObject(const PropertyList& other) const;

  friend bool operator==(const PropertyList& a, const PropertyList& b);

private:
  using Value = std::variant<bool, std::int64_t, double, std::string, std::shared_ptr<Bytes>, Date,
                             std::shared_ptr<Array>, std::shared_ptr<Dictionary>>;
  [[nodiscard]] bool isContainer() const;
  [[nodiscard]] const void* object() const;
  void releaseChildren(std::vector<PropertyList>& pending);
  void dismantle();

  Value value_;
};

/// The string under a key; null when missing or of another kind.
[[nodiscard]] const std::string* stringFor(const PropertyList::Dictionary& dictionary,
                                           const std::string& key);

} // namespace tavrel
