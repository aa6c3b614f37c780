#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// The kinds of data a pasteboard holds, by the names the platform gives them.
namespace pasteboardType {
inline constexpr const char* string = "NSStringPboardType";
inline constexpr const char* rtf = "NSRTFPboardType";
inline constexpr const char* rtfd = "NSRTFDPboardType";
inline constexpr const char* html = "NSHTMLPboardType";
inline constexpr const char* pdf = "NSPDFPboardType";
inline constexpr const char* tiff = "NSTIFFPboardType";
inline constexpr const char* pict = "NSPICTPboardType";
inline constexpr const char* url = "NSURLPboardType";
inline constexpr const char* filenames = "NSFilenamesPboardType";
inline constexpr const char* pathFinderFilenames = "PathFinderFilenamesPboardType";
/// Says of the other contents that they are a password or the like: they are to be neither logged
/// nor kept longer than needed. It has no data.
inline constexpr const char* concealed = "org.nspasteboard.ConcealedType";
} // namespace pasteboardType

/// One pasteboard: an ordered list of types, and data for some of them.
class Pasteboard {
public:
  virtual ~Pasteboard() = default;

  /// In the order they were declared.
  [[nodiscard]] virtual std::vector<std::string> types() = 0;

  /// Replaces everything by these types, without data. Moves the change count.
  virtual void declareTypes(const std::vector<std::string>& types) = 0;

  /// Data of a declared type; false for a type that is not declared. Leaves the change count.
  virtual bool setData(Bytes data, const std::string& type) = 0;

  /// Nothing when the type is missing or has no data.
  [[nodiscard]] virtual std::optional<Bytes> data(const std::string& type) = 0;

  /// A string travels as its UTF-8 data, a property list as an XML property list.
  virtual bool setString(const std::string& text, const std::string& type) = 0;
  [[nodiscard]] virtual std::optional<std::string> string(const std::string& type) = 0;
  virtual bool setPropertyList(const PropertyList& list, const std::string& type) = 0;
  [[nodiscard]] virtual std::optional<PropertyList> propertyList(const std::string& type) = 0;

  /// Grows whenever the contents are replaced, by whomever.
  [[nodiscard]] virtual std::int64_t changeCount() = 0;
};

/// The pasteboards by name. A named pasteboard comes into being when it is first asked for and
/// lives, with its contents, as long as the application.
class Pasteboards {
public:
  virtual ~Pasteboards() = default;
  [[nodiscard]] virtual Pasteboard& named(const std::string& name) = 0;
  /// The user's clipboard, shared with every other program. It also offers what other programs
  /// put there under names of the desktop's own; declaring those again and setting their data puts
  /// back exactly what was there. A pasteboard cleared to nothing but an empty string (with
  /// `setString`; with `setData` it is contents), and contents put back as they were read, leave
  /// the clipboard with the program that owns it. Whoever copies contents on leaves out types
  /// without data.
  [[nodiscard]] virtual Pasteboard& general() = 0;
};

} // namespace tavrel
