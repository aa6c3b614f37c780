#include "platform/linux/scripts/ScriptFile.h"

#include "base/Utf8.h"
#include "platform/linux/system/BoundedFile.h"
#include "platform/linux/system/FileReplacement.h"

#include <unistd.h>

namespace tavrel {
namespace {

constexpr std::size_t largestScript = std::size_t{64} << 20U;

bool isContainer(const DecodedPropertyList& list) {
  return list.value && list.value->dataFor("compiled");
}

} // namespace

ScriptFile readScriptFile(const std::string& path) {
  ScriptFile file;
  if (::access(path.c_str(), F_OK) != 0)
    return file;
  const auto contents = readFile(path, largestScript);
  file.kind = ScriptFile::Kind::unreadable;
  if (!contents)
    return file;
  if (contents->starts_with("#!") && ::access(path.c_str(), X_OK) == 0) {
    file.kind = ScriptFile::Kind::program;
    return file;
  }
  file.isWritable = ::eaccess(path.c_str(), W_OK) == 0;
  const DecodedPropertyList list = decodePropertyList(Bytes(contents->begin(), contents->end()));
  if (isContainer(list)) {
    file.kind = ScriptFile::Kind::container;
    file.container = *list.value;
    file.form = list.form;
  } else if (isUtf8(*contents) && contents->find('\0') == std::string::npos) {
    file.kind = ScriptFile::Kind::source;
    file.source = *contents;
  }
  return file;
}

bool writeScriptFile(const std::string& path, const PropertyList& container,
                     PropertyListForm form) {
  const auto bytes = encodePropertyList(container, form);
  return bytes && replaceFile(path, *bytes).empty();
}

} // namespace tavrel
