#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tavrel::script {

/// The vocabularies that terms come from. `language` is known everywhere; the others only inside a
/// `tell` of their application (or `using terms from`).
enum class Dictionary : std::uint8_t {
  language,
  application, ///< what every application understands
  fileManager,
  terminal,
  systemEvents,
  systemPreferences,
  self ///< this program
};

/// The vocabulary that an application has beside `language` and `application`. The name is in lower
/// case.
[[nodiscard]] Dictionary dictionaryOf(std::string_view applicationName);

/// Whether a command takes a direct parameter, the one without a label.
enum class DirectParameter : std::uint8_t { none, allowed };

/// A command: its words, and the labels of its other parameters separated by commas.
struct CommandTerm {
  Dictionary dictionary;
  std::string_view name;
  DirectParameter direct;
  std::string_view labels;
};

/// A class of values or objects; its plural is empty where it has none.
struct TypeTerm {
  Dictionary dictionary;
  std::string_view name;
  std::string_view plural;
};

/// A property or a constant. Only those need a term that have several words, or that can stand
/// without `of` in the block of an application; other names are identifiers to the parser.
struct NameTerm {
  Dictionary dictionary;
  std::string_view name;
};

// All terms of a sort, of all vocabularies.
[[nodiscard]] std::span<const CommandTerm> commandTerms();
[[nodiscard]] std::span<const TypeTerm> typeTerms();
[[nodiscard]] std::span<const NameTerm> propertyTerms();
[[nodiscard]] std::span<const NameTerm> constantTerms();

/// Whether the word is a keyword and so never an identifier.
[[nodiscard]] bool isReserved(std::string_view word);

/// Whether the word, or two words, can label a parameter of a handler, as `at` or `out of`.
[[nodiscard]] bool isPreposition(std::string_view word);

} // namespace tavrel::script
