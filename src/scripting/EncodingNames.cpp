#include "scripting/EncodingNames.h"

#include "platform/Platform.h"

namespace tavrel {

StringEncoding encodingFromName(const std::string& name) {
  TextEncodings& encodings = platform().textEncodings;
  for (const StringEncoding encoding : encodings.available()) {
    if (encoding == invalidEncoding)
      break;
    if (encodings.nameOf(encoding) == name)
      return encodings.frameworkEncoding(encoding);
  }
  return invalidEncoding;
}

} // namespace tavrel
