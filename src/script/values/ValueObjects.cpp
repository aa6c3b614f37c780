#include "script/values/ValueObjects.h"

#include <algorithm>

namespace tavrel::script {
namespace {

// What counts as memory for one element of a list or one entry of a record.
constexpr std::size_t elementSize = 2 * sizeof(Value);
constexpr std::size_t textSize = sizeof(Text); ///< beside its bytes

bool startsCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

std::size_t charactersIn(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), startsCharacter));
}

} // namespace

Text::Text(Heap& heap, std::string value)
    : Object(valueKind), heap_(heap), value_(std::move(value)) {
  heap_.take(value_.size() + textSize);
}

Text::~Text() {
  heap_.giveBack(value_.size() + textSize);
}

std::size_t Text::length() const {
  if (length_ == std::string::npos)
    length_ = charactersIn(value_);
  return length_;
}

std::size_t Text::offsetOf(std::size_t character) const {
  if (isAscii())
    return character;
  if (character < last_.character)
    last_ = {};
  while (last_.character < character) {
    const auto next = std::find_if(value_.begin() + static_cast<std::ptrdiff_t>(last_.offset) + 1,
                                   value_.end(), startsCharacter);
    last_ = {last_.character + 1, static_cast<std::size_t>(next - value_.begin())};
  }
  return last_.offset;
}

void Text::append(std::string_view more) {
  heap_.take(more.size());
  value_.append(more);
  length_ += length_ == std::string::npos ? 0 : charactersIn(more);
}

List::List(Heap& heap, std::vector<Value> values)
    : Container(valueKind, heap), values_(std::move(values)) {
  heap.take(values_.size() * elementSize);
}

List::~List() {
  heap().giveBack(values_.size() * elementSize);
}

void List::empty() {
  heap().giveBack(values_.size() * elementSize);
  std::vector<Value>().swap(values_);
}

void List::append(Value value) {
  heap().take(elementSize);
  values_.push_back(std::move(value));
}

void List::insertFirst(Value value) {
  heap().take(elementSize);
  values_.insert(values_.begin(), std::move(value));
}

Record::Record(Heap& heap, std::vector<Entry> entries) : Container(valueKind, heap) {
  for (Entry& entry : entries)
    set(entry.first, std::move(entry.second));
}

Record::~Record() {
  heap().giveBack(entries_.size() * elementSize);
}

void Record::empty() {
  heap().giveBack(entries_.size() * elementSize);
  std::vector<Entry>().swap(entries_);
}

const Value* Record::find(const std::string* label) const {
  for (const Entry& entry : entries_)
    if (entry.first == label)
      return &entry.second;
  return nullptr;
}

void Record::set(const std::string* label, Value value) {
  for (Entry& entry : entries_)
    if (entry.first == label) {
      entry.second = std::move(value);
      return;
    }
  heap().take(elementSize);
  entries_.emplace_back(label, std::move(value));
}

} // namespace tavrel::script
