#pragma once

#include "script/syntax/SyntaxTree.h"
#include "script/syntax/Terminology.h"
#include "script/syntax/Token.h"

#include <initializer_list>
#include <optional>
#include <set>
#include <span>
#include <string_view>

namespace tavrel::script {

/// The tree of a whole script, a node of kind `block`. Throws ScriptError with a span: `syntax`
/// when the source is not understood, `stackOverflow` when it nests deeper than `deepestNesting` or
/// an expression grows higher than `highestExpression`, and `outOfMemory` for more than 16 MB.
[[nodiscard]] Node parseScript(std::string_view source);

/// Reads a script's tokens from front to back. One class, written in several files: its
/// cursor (Parser.cpp), statements, control, handlers and declarations, expressions, references,
/// elements, names, commands.
class Parser {
public:
  explicit Parser(std::vector<Token> tokens);
  [[nodiscard]] Node script();

private:
  /// Words that would go on with an expression but now belong to an enclosing command.
  struct StopWords {
    bool in = false;
    bool as = false;
    bool ofType = false;
  };

  /// The children of a new node. They move in: a braced list would copy each tree into the next
  /// higher one, at a cost that grows with the square of the height.
  struct Children {
    Children() = default;
    Children(Node first) { nodes.push_back(std::move(first)); }
    Children(Node first, Node second) : Children(std::move(first)) {
      nodes.push_back(std::move(second));
    }
    Children(Node first, Node second, Node third) : Children(std::move(first), std::move(second)) {
      nodes.push_back(std::move(third));
    }
    Children(Node first, Node second, Node third, Node fourth)
        : Children(std::move(first), std::move(second), std::move(third)) {
      nodes.push_back(std::move(fourth));
    }
    std::vector<Node> nodes;
  };

  // Parser.cpp: the cursor
  [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
  [[nodiscard]] bool seesWord(std::string_view word, std::size_t ahead = 0) const;
  [[nodiscard]] bool seesSymbol(std::string_view symbol, std::size_t ahead = 0) const;
  /// How many tokens the words take when they stand here; 0 when they do not.
  [[nodiscard]] std::size_t lengthOf(std::string_view words) const;
  bool takeWord(std::string_view word);
  bool takeSymbol(std::string_view symbol);
  bool takeWords(std::string_view words);
  void expectWord(std::string_view word);
  void expectSymbol(std::string_view symbol);
  void endLine();
  void skipLines();
  [[nodiscard]] std::string identifier();
  [[nodiscard]] bool seesIdentifier() const;
  [[nodiscard]] bool knows(Dictionary dictionary) const;
  [[noreturn]] void expected(std::string_view what) const;
  [[nodiscard]] Node node(NodeKind kind, std::string text = {}, Children children = {});
  void setSpan(Node& node, std::uint32_t start) const;
  /// Counts the height of a node whose children were put in one by one.
  void updateHeight(Node& node) const;

  // ParserStatements.cpp
  using BlockEndings = std::initializer_list<std::string_view>;
  [[nodiscard]] Node block(BlockEndings endings);
  [[nodiscard]] Node statement();
  [[nodiscard]] Node simpleStatement();
  [[nodiscard]] std::optional<Node> keywordStatement();
  [[nodiscard]] Node returnStatement();
  [[nodiscard]] Node setStatement();
  [[nodiscard]] Node copyStatement();
  [[nodiscard]] Node errorStatement();
  [[nodiscard]] Node tell();
  void learnTerms(const Node& target);
  [[nodiscard]] Node usingTerms();
  void endBlock(std::string_view word);

  // ParserControl.cpp
  [[nodiscard]] Node ifStatement();
  [[nodiscard]] Node exitRepeat();
  [[nodiscard]] Node loopBody();
  [[nodiscard]] Node repeat();
  [[nodiscard]] Node repeatWith();
  [[nodiscard]] Node tryStatement();
  void errorVariables(Node& tryStatement);
  [[nodiscard]] Node errorNumber();
  [[nodiscard]] std::string attribute();
  [[nodiscard]] Node considering(NodeKind kind);
  [[nodiscard]] Node withClause();

  // ParserDeclarations.cpp
  [[nodiscard]] Node use();
  [[nodiscard]] Node handler();
  void handlerParameters(Node& handler);
  void labelledParameters(Node& handler);
  [[nodiscard]] Node parameter(std::string label);
  [[nodiscard]] Node scriptObject();
  [[nodiscard]] Node propertyDeclaration();
  [[nodiscard]] Node declaration(NodeKind kind);
  void noteLabelledHandlers();

  // ParserExpressions.cpp
  [[nodiscard]] Node expression();
  [[nodiscard]] Node expression(StopWords stopWords);
  [[nodiscard]] Node binaryChain(int level);
  [[nodiscard]] Node casts(Node value, std::uint32_t start);
  [[nodiscard]] bool continuesAfterCast(Node& value);
  [[nodiscard]] Node power();
  [[nodiscard]] Node unary(int level);
  [[nodiscard]] std::string operatorAt(int level);
  [[nodiscard]] std::string comparison();
  [[nodiscard]] std::string comparisonPhrase();
  [[nodiscard]] Node typeExpression();
  [[nodiscard]] Node listOrRecord();
  /// Whether the label of a record's entry stands here.
  [[nodiscard]] bool startsEntry() const;
  [[nodiscard]] Node entry();
  [[nodiscard]] bool startsExpression() const;
  [[nodiscard]] bool startsIndex() const;
  [[nodiscard]] Node index();

  // ParserReferences.cpp
  [[nodiscard]] Node reference();
  [[nodiscard]] Node withOwners(Node primary);
  [[nodiscard]] Node ownedBy(Node owner);
  void attach(Node& reference, Node container) const;
  [[nodiscard]] Node filtered(Node reference);

  // ParserElements.cpp
  [[nodiscard]] const TypeTerm* typeAt(bool& plural, std::size_t& length) const;
  [[nodiscard]] std::string elementType();
  [[nodiscard]] bool seesOrdinalEnding() const;
  [[nodiscard]] Node ordinal(std::int64_t number);
  [[nodiscard]] Node rangeEnd();
  [[nodiscard]] Node elements(std::string_view type, bool plural);
  [[nodiscard]] std::optional<Node> pickedElements();

  // ParserNames.cpp
  [[nodiscard]] Node primary();
  [[nodiscard]] Node literal();
  [[nodiscard]] Node named();
  [[nodiscard]] std::optional<Node> fixedWord();
  [[nodiscard]] std::optional<Node> phrase();
  [[nodiscard]] const NameTerm* termAt(std::span<const NameTerm> terms) const;
  [[nodiscard]] std::optional<Node> term();

  // ParserCommands.cpp
  [[nodiscard]] const CommandTerm* commandAt() const;
  [[nodiscard]] Node command(const CommandTerm& term);
  void commandLabels(const CommandTerm& term, Node& command, StopWords stopWords);
  bool labelledParameter(const CommandTerm& term, Node& command, StopWords stopWords);
  bool switches(const CommandTerm& term, Node& command);
  [[nodiscard]] std::string_view labelAt(const CommandTerm& term) const;
  [[nodiscard]] Node call(std::string name, std::uint32_t start);
  void handlerSwitches(Node& call);
  [[nodiscard]] Node labelledCall(std::string name, std::uint32_t start);
  [[nodiscard]] std::string prepositionAt() const;

  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int depth_ = 0;
  int loopDepth_ = 0;      ///< around the place, in its handler
  int conditionDepth_ = 0; ///< of elements (`whose`) around the place
  StopWords stopWords_;
  std::vector<Dictionary> dictionaries_;
  std::set<std::string, std::less<>> labelledHandlers_;

  friend class Nesting;
};

/// Counts one level of nesting for as long as it lives.
class Nesting {
public:
  explicit Nesting(Parser& parser);
  ~Nesting();
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

private:
  Parser& parser_;
};

} // namespace tavrel::script
