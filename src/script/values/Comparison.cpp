#include "script/values/Operators.h"

#include "script/values/CodePoints.h"
#include "script/values/Coercion.h"
#include "script/values/Specifier.h"

#include <algorithm>

namespace tavrel::script {
namespace {

bool isBlank(char32_t c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == 0xA0;
}

bool isHyphen(char32_t c) {
  return c == '-' || (c >= 0x2010 && c <= 0x2013);
}

bool isPunctuation(char32_t c) {
  return c < 0x80 &&
         std::string_view(".,?:;!'\"`").find(static_cast<char>(c)) != std::string_view::npos;
}

bool counts(const Considered& considered, char32_t c) {
  return (considered.whiteSpace || !isBlank(c)) && (considered.hyphens || !isHyphen(c)) &&
         (considered.punctuation || !isPunctuation(c));
}

int sign(double difference) {
  return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

// With `considering numeric strings` runs of digits compare by their number: "2" before "10".
int compareNumerically(const std::u32string& a, const std::u32string& b) {
  const auto isDigit = [](char32_t c) { return c >= '0' && c <= '9'; };
  const auto run = [&](const std::u32string& text, std::size_t& at) {
    while (at < text.size() && text[at] == '0')
      ++at;
    const std::size_t start = at;
    while (at < text.size() && isDigit(text[at]))
      ++at;
    return text.substr(start, at - start);
  };
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    if (isDigit(a[i]) && isDigit(b[j])) {
      const std::u32string x = run(a, i);
      const std::u32string y = run(b, j);
      if (x.size() != y.size())
        return x.size() < y.size() ? -1 : 1;
      if (x != y)
        return x < y ? -1 : 1;
    } else if (a[i] != b[j]) {
      return a[i] < b[j] ? -1 : 1;
    } else {
      ++i;
      ++j;
    }
  }
  return i < a.size() ? 1 : j < b.size() ? -1 : 0;
}

int compareTexts(Runtime& runtime, const std::string& a, const std::string& b) {
  if (&a == &b)
    return 0;
  runtime.step((a.size() + b.size()) / 64);
  const std::u32string x = comparable(runtime, a);
  const std::u32string y = comparable(runtime, b);
  if (runtime.considered.numericStrings)
    return compareNumerically(x, y);
  const int result = x.compare(y);
  return result < 0 ? -1 : result > 0 ? 1 : 0;
}

bool equalLists(Runtime& runtime, const List& a, const List& b) {
  runtime.guardStack();
  if (a.size() != b.size())
    return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    runtime.step();
    if (!areEqual(runtime, a.values()[i], b.values()[i]))
      return false;
  }
  return true;
}

bool equalRecords(Runtime& runtime, const Record& a, const Record& b) {
  runtime.guardStack();
  return a.entries().size() == b.entries().size() &&
         std::all_of(a.entries().begin(), a.entries().end(), [&](const Record::Entry& entry) {
           const Value* other = b.find(entry.first);
           runtime.step();
           return other && areEqual(runtime, entry.second, *other);
         });
}

bool equalObjects(Runtime& runtime, const Value& a, const Value& b) {
  if (const auto* text = a.as<Text>())
    return compareTexts(runtime, text->value(), b.as<Text>()->value()) == 0;
  if (const auto* list = a.as<List>())
    return a.object() == b.object() || equalLists(runtime, *list, *b.as<List>());
  if (const auto* record = a.as<Record>())
    return a.object() == b.object() || equalRecords(runtime, *record, *b.as<Record>());
  if (const auto* date = a.as<Date>())
    return date->seconds == b.as<Date>()->seconds;
  if (const auto* file = a.as<File>())
    return file->path == b.as<File>()->path;
  if (a.is(ValueKind::specifier))
    return described(a) == described(b);
  return a.object() == b.object();
}

// Only numbers, texts and dates come before or after anything; a list of one stands for its
// element.
void refuseUnordered(const Value& value) {
  const auto* list = value.as<List>();
  const Value& single = list && list->size() == 1 ? list->values()[0] : value;
  if (!single.isNumber() && !single.is(ValueKind::text) && !single.is(ValueKind::date) &&
      !single.is(ValueKind::file))
    throw ScriptError{errors::cannotCoerce, described(value).append(" has no order.")};
}

// The names of texts are many: "text", "string" and "Unicode text" are one class.
std::string_view plainType(std::string_view name) {
  if (name == "string" || name == "unicode text")
    return "text";
  return name == "posix file" ? "file" : name;
}

} // namespace

std::u32string comparable(const Runtime& runtime, std::string_view text) {
  Loan room(runtime.heap);
  room.take(text.size() * sizeof(char32_t));
  std::u32string result;
  result.reserve(text.size());
  const Considered& considered = runtime.considered;
  for (std::size_t at = 0; at < text.size();) {
    char32_t c = takeCharacter(text, at);
    if (!counts(considered, c))
      continue;
    if (!considered.caseDifferences)
      c = folded(c);
    result += considered.diacriticals ? c : withoutDiacritical(c);
  }
  return result;
}

int order(Runtime& runtime, const Value& a, const Value& b) {
  if (a.isNumber() && b.isNumber())
    return a.is(b.kind()) && a.is(ValueKind::integer) ? (a.integer() < b.integer()   ? -1
                                                         : a.integer() > b.integer() ? 1
                                                                                     : 0)
                                                      : sign(a.number() - b.number());
  if (const auto* date = a.as<Date>())
    return sign(date->seconds - coerced(runtime, b, "date").as<Date>()->seconds);
  refuseUnordered(a);
  refuseUnordered(b);
  if (a.isNumber())
    return sign(a.number() - numberOf(runtime, b).number());
  return compareTexts(runtime, textOf(runtime, a), textOf(runtime, b));
}

bool areEqual(Runtime& runtime, const Value& a, const Value& b) {
  if (a.isNumber() && b.isNumber())
    return a.is(b.kind()) && a.is(ValueKind::integer) ? a.integer() == b.integer()
                                                      : a.number() == b.number();
  if (a.is(ValueKind::typeName) && b.is(ValueKind::typeName))
    return plainType(a.name()) == plainType(b.name());
  if (a.kind() != b.kind())
    return false;
  switch (a.kind()) {
  case ValueKind::undefined:
  case ValueKind::missing:
    return true;
  case ValueKind::boolean:
    return a.boolean() == b.boolean();
  case ValueKind::constant:
    return &a.name() == &b.name();
  default:
    return equalObjects(runtime, a, b);
  }
}

// A list contains a list as a run of its elements, and any other value as one of them.
bool contains(Runtime& runtime, const Value& whole, const Value& part) {
  if (const auto* record = whole.as<Record>()) {
    const auto* other = part.as<Record>();
    return other && std::all_of(other->entries().begin(), other->entries().end(),
                                [&](const Record::Entry& entry) {
                                  const Value* mine = record->find(entry.first);
                                  return mine && areEqual(runtime, *mine, entry.second);
                                });
  }
  const auto* list = whole.as<List>();
  if (!list)
    return comparable(runtime, textOf(runtime, whole))
               .find(comparable(runtime, textOf(runtime, part))) != std::u32string::npos;
  const auto* run = part.as<List>();
  const std::vector<Value> wanted = run ? run->values() : std::vector<Value>{part};
  const auto& values = list->values();
  const auto found = std::search(values.begin(), values.end(), wanted.begin(), wanted.end(),
                                 [&](const Value& a, const Value& b) {
                                   runtime.step();
                                   return areEqual(runtime, a, b);
                                 });
  return found != values.end() || wanted.empty();
}

} // namespace tavrel::script
