#include "platform/linux/plists/PropertyListCodec.h"

#include "platform/linux/plists/PropertyListBinaryCheck.h"
#include "platform/linux/plists/PropertyListNodes.h"
#include "platform/linux/plists/PropertyListXmlCheck.h"

#include <clocale>
#include <limits>
#include <string_view>

namespace tavrel {

namespace {

std::string_view textOf(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string problemOf(const Bytes& bytes, PropertyListForm form) {
  if (bytes.size() > std::numeric_limits<std::uint32_t>::max())
    return "is too large";
  return form == PropertyListForm::binary ? problemOfBinaryPropertyList(bytes)
                                          : problemOfXmlPropertyList(textOf(bytes));
}

// While it lives, this thread has the decimal point of the C locale, as the format wants it:
// libplist 2.2 reads and writes numbers by the locale.
class CNumericLocale {
public:
  CNumericLocale()
      : numbers_(::newlocale(LC_NUMERIC_MASK, "C", nullptr)), previous_(::uselocale(numbers_)) {}
  ~CNumericLocale() {
    ::uselocale(previous_);
    ::freelocale(numbers_);
  }
  CNumericLocale(const CNumericLocale&) = delete;
  CNumericLocale& operator=(const CNumericLocale&) = delete;

private:
  locale_t numbers_;
  locale_t previous_;
};

PlistNode parsed(const Bytes& bytes, PropertyListForm form) {
  const CNumericLocale guard;
  plist_t node = nullptr;
  const auto* start = reinterpret_cast<const char*>(bytes.data());
  const auto size = static_cast<std::uint32_t>(bytes.size());
  if (form == PropertyListForm::binary)
    plist_from_bin(start, size, &node);
  else
    plist_from_xml(start, size, &node);
  return PlistNode(node);
}

// From 2.3 on the library has one function that frees what it wrote, and in time no other.
template <typename Output> void release(Output* output) {
  if constexpr (requires { plist_mem_free(output); })
    plist_mem_free(output);
  else
    plist_to_xml_free(output);
}

} // namespace

DecodedPropertyList decodePropertyList(const Bytes& bytes) {
  DecodedPropertyList result;
  result.form =
      textOf(bytes).starts_with("bplist00") ? PropertyListForm::binary : PropertyListForm::xml;
  result.problem = bytes.empty() ? "is empty" : problemOf(bytes, result.form);
  if (!result.problem.empty())
    return result;
  const PlistNode root = parsed(bytes, result.form);
  result.value = root ? valueOfNode(root.get()) : std::nullopt;
  if (!result.value)
    result.problem = "holds no value that can be read";
  return result;
}

std::optional<Bytes> encodePropertyList(const PropertyList& value, PropertyListForm form) {
  const PlistNode root = nodeOfValue(value);
  if (!root)
    return std::nullopt;
  const CNumericLocale guard;
  char* output = nullptr; // libplist 2.2 reads it before it writes
  std::uint32_t length = 0;
  if (form == PropertyListForm::binary)
    plist_to_bin(root.get(), &output, &length);
  else
    plist_to_xml(root.get(), &output, &length);
  if (!output)
    return std::nullopt;
  Bytes bytes(output, output + length);
  release(output);
  return bytes;
}

} // namespace tavrel
