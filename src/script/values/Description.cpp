#include "script/values/Description.h"

#include "base/Decimal.h"
#include "script/values/Dates.h"
#include "script/values/ScriptObject.h"
#include "script/values/Specifier.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tavrel::script {
namespace {

constexpr int deepest = 20;
constexpr std::size_t longestText = 4096;

void quote(std::string& out, std::string_view text) {
  const bool isCut = text.size() > longestText;
  std::size_t kept = std::min(text.size(), longestText);
  while (isCut && kept > 0 && (static_cast<unsigned char>(text[kept]) & 0xC0U) == 0x80U)
    --kept;
  out += '"';
  for (char c : text.substr(0, kept)) {
    if (c == '"' || c == '\\')
      out += '\\';
    out += c;
  }
  out += isCut ? "…\"" : "\"";
}

void describe(std::string& out, const Value& value, int depth);

void describeList(std::string& out, const List& list, int depth) {
  out += '{';
  const char* between = "";
  for (const Value& each : list.values()) {
    out += between;
    if (out.size() > longestText)
      break;
    describe(out, each, depth + 1);
    between = ", ";
  }
  out += '}';
}

void describeRecord(std::string& out, const Record& record, int depth) {
  out += '{';
  const char* between = "";
  for (const auto& [label, each] : record.entries()) {
    out.append(between).append(*label).append(":");
    describe(out, each, depth + 1);
    between = ", ";
  }
  out += '}';
}

std::string keyOf(const ObjectStep& step) {
  if (step.keys.empty())
    return {};
  if (const auto* text = std::get_if<std::string>(&step.keys[0].value))
    return " \"" + *text + "\"";
  if (const auto* number = std::get_if<std::int64_t>(&step.keys[0].value))
    return " " + std::to_string(*number);
  return {};
}

void describeSpecifier(std::string& out, const ObjectPath& path) {
  for (auto step = path.steps.rbegin(); step != path.steps.rend(); ++step) {
    out += step->kind == ObjectStep::Kind::every ? "every " : "";
    out.append(step->name).append(keyOf(*step)).append(" of ");
  }
  out += "application ";
  quote(out, path.application);
}

void describeObject(std::string& out, const Value& value, int depth) {
  if (const auto* text = value.as<Text>())
    quote(out, text->value());
  else if (const auto* list = value.as<List>())
    describeList(out, *list, depth);
  else if (const auto* record = value.as<Record>())
    describeRecord(out, *record, depth);
  else if (const auto* date = value.as<Date>())
    quote(out.append("date "), dateText(date->seconds));
  else if (const auto* file = value.as<File>())
    quote(out.append(file->isAlias ? "alias " : "POSIX file "), file->path);
  else if (const auto* object = value.as<Specifier>())
    describeSpecifier(out, object->path);
  else if (const auto* script = value.as<ScriptObject>())
    out.append("«script ").append(script->name()).append("»");
  else if (value.is(ValueKind::reference))
    out.append("a reference");
}

void describe(std::string& out, const Value& value, int depth) {
  if (depth > deepest || out.size() > longestText) {
    out += "…";
    return;
  }
  switch (value.kind()) {
  case ValueKind::undefined:
    out += "no result";
    return;
  case ValueKind::missing:
    out += "missing value";
    return;
  case ValueKind::boolean:
    out += value.boolean() ? "true" : "false";
    return;
  case ValueKind::integer:
    out += std::to_string(value.integer());
    return;
  case ValueKind::real:
    out += realText(value.real());
    return;
  case ValueKind::constant:
  case ValueKind::typeName:
    out += value.name();
    return;
  default:
    describeObject(out, value, depth);
  }
}

} // namespace

std::string realText(double value) {
  if (!std::isfinite(value))
    return std::isnan(value) ? "NaN" : value > 0 ? "inf" : "-inf";
  const double size = std::fabs(value);
  if (value == 0 || (size < 10000 && size >= 0.001)) {
    std::string plain = decimalText(value, DecimalForm::plain);
    return plain.find('.') == std::string::npos ? plain.append(".0") : plain;
  }
  std::string text = decimalText(value, DecimalForm::powers);
  const std::size_t e = text.find('e');
  const int exponent = std::atoi(text.c_str() + e + 1);
  std::string digits = text.substr(0, e);
  if (digits.find('.') == std::string::npos)
    digits += ".0";
  return digits.append(exponent < 0 ? "E" : "E+").append(std::to_string(exponent));
}

std::string described(const Value& value) {
  std::string result;
  describe(result, value, 0);
  return result;
}

std::string typeOf(const Value& value) {
  static constexpr std::array<const char*, 14> names{
      "class", "class", "boolean", "integer", "real", "constant", "class",
      "text",  "list",  "record",  "date",    "file", "script",   "reference"};
  if (const auto* file = value.as<File>())
    return file->isAlias ? "alias" : "file";
  if (const auto* object = value.as<Specifier>())
    return object->path.steps.empty() ? "application" : object->path.steps.back().name;
  const auto index = static_cast<std::size_t>(value.kind());
  return index < names.size() ? names[index] : "reference";
}

} // namespace tavrel::script
