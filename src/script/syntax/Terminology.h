#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace tavrel::script {

/// The vocabularies that terms come from: `language` is known everywhere, the others between
/// `tell application` and its end.
enum class Dictionary : std::uint8_t {
  language,
  application, ///< what every application understands
  fileManager,
  terminal,
  systemEvents,
  systemPreferences,
  self ///< this program
};

/// The vocabulary of an application, beside the language's and that of every application.
[[nodiscard]] Dictionary dictionaryOf(std::string_view applicationName);

enum class DirectParameter : std::uint8_t { none, allowed };

/// A command: its words, and those of its labelled parameters separated by commas.
struct CommandTerm {
  Dictionary dictionary;
  std::string_view name;
  DirectParameter direct;
  std::string_view labels;
};

/// A class of objects.
struct TypeTerm {
  Dictionary dictionary;
  std::string_view name;
  std::string_view plural;
};

/// A property or a constant; only those whose names take two words, or that stand without `of` in
/// the block of an application, need to be told.
struct NameTerm {
  Dictionary dictionary;
  std::string_view name;
};

[[nodiscard]] std::span<const CommandTerm> commandTerms();
[[nodiscard]] std::span<const TypeTerm> typeTerms();
[[nodiscard]] std::span<const NameTerm> propertyTerms();
[[nodiscard]] std::span<const NameTerm> constantTerms();

/// Whether a word is one of the language's own and so never an identifier.
[[nodiscard]] bool isReserved(std::string_view word);

/// Whether a word can label a parameter of a handler, as `at` or `between`.
[[nodiscard]] bool isPreposition(std::string_view word);

} // namespace tavrel::script
