#include "base/Description.h"

#include "base/Ascii.h"
#include "base/Decimal.h"

#include <algorithm>
#include <string_view>

namespace tavrel {

namespace {

constexpr std::size_t indentation = 4;
// A log line of more is of no use, and the depth of a value must not cost stack.
constexpr std::size_t deepest = 64;

std::string numberText(double number) {
  return decimalText(number, DecimalForm::shorter);
}

std::string dataText(const Bytes& data) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text = "<";
  for (const std::uint8_t byte : data)
    text.append({digits[byte >> 4U], digits[byte & 0xFU]});
  return text.append(">");
}

bool isPlain(char c) {
  return isDigit(c) || isLetter(c) || c == '_';
}

std::string inner(const std::string& text) {
  if (!text.empty() && std::all_of(text.begin(), text.end(), isPlain))
    return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\')
      quoted.push_back('\\');
    quoted.append(c == '\n' ? "\\n" : std::string(1, c));
  }
  return quoted.append("\"");
}

std::string scalarText(const PropertyList& value) {
  switch (value.kind()) {
  case PropertyList::Kind::boolean:
    return value.boolean().value_or(false) ? "1" : "0";
  case PropertyList::Kind::integer:
    return std::to_string(value.integer().value_or(0));
  case PropertyList::Kind::real:
    return numberText(value.real().value_or(0));
  case PropertyList::Kind::date:
    return numberText(value.date().value_or(PropertyList::Date{}).seconds);
  case PropertyList::Kind::string:
    return *value.string();
  default:
    return "...";
  }
}

void write(std::string& out, const PropertyList& value, std::size_t depth);

void writeArray(std::string& out, const PropertyList::Array& array, std::size_t depth) {
  out.append("(");
  for (std::size_t i = 0; i < array.size(); ++i) {
    out.append(i == 0 ? "\n" : ",\n").append((depth + 1) * indentation, ' ');
    write(out, array[i], depth + 1);
  }
  out.append("\n").append(depth * indentation, ' ').append(")");
}

void writeDictionary(std::string& out, const PropertyList::Dictionary& dictionary,
                     std::size_t depth) {
  out.append("{\n");
  for (const auto& [key, value] : dictionary) {
    out.append((depth + 1) * indentation, ' ').append(inner(key)).append(" = ");
    write(out, value, depth + 1);
    out.append(";\n");
  }
  out.append(depth * indentation, ' ').append("}");
}

void write(std::string& out, const PropertyList& value, std::size_t depth) {
  if (const Bytes* data = value.data())
    out.append(dataText(*data));
  else if (value.array() && depth < deepest)
    writeArray(out, *value.array(), depth);
  else if (value.dictionary() && depth < deepest)
    writeDictionary(out, *value.dictionary(), depth);
  else
    out.append(inner(scalarText(value)));
}

} // namespace

std::string descriptionOf(const PropertyList& value) {
  if (const std::string* text = value.string())
    return *text;
  std::string out;
  write(out, value, 0);
  return out;
}

} // namespace tavrel
