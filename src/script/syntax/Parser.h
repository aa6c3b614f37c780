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

/// A recursive-descent parser: reads the tokens from front to back, with one function for each form
/// of the language. One class, written in several files that begin with its name; the comments
/// below tell which functions stand where.
class Parser {
public:
  explicit Parser(std::vector<Token> tokens);
  [[nodiscard]] Node script();

private:
  /// Words that could continue an expression but now label a parameter of the enclosing command: in
  /// `offset of "a" in "b"` the word `in` must not begin a container of "a".
  struct StopWords {
    bool in = false;
    bool as = false;
    bool ofType = false;
  };

  /// The children of a new node. They move in, as nodes cannot be copied and an initializer list
  /// can only copy.
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

  // Parser.cpp: the tokens at the cursor. `seesX` looks, `takeX` goes past what it finds there,
  // `expectX` throws when it is not there.
  [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
  [[nodiscard]] bool seesWord(std::string_view word, std::size_t ahead = 0) const;
  [[nodiscard]] bool seesSymbol(std::string_view symbol, std::size_t ahead = 0) const;
  /// The number of the words, which are separated by blanks, when they stand here; 0 when they do
  /// not.
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
  /// Throws the error for anything but `what` at the cursor.
  [[noreturn]] void expected(std::string_view what) const;
  [[nodiscard]] Node node(NodeKind kind, std::string text = {}, Children children = {});
  /// The span from `start` to the token before the cursor.
  void setSpan(Node& node, std::uint32_t start) const;
  /// Sets the height of a node from its children; needed when they were added one by one. Throws
  /// ScriptError (`stackOverflow`) when that is too high.
  void updateHeight(Node& node) const;

  // ParserStatements.cpp: blocks and simple statements
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

  // ParserControl.cpp: if, repeat, try, considering, with
  [[nodiscard]] Node ifStatement();
  [[nodiscard]] Node exitRepeat();
  [[nodiscard]] Node loopBody();
  [[nodiscard]] Node repeat();
  [[nodiscard]] Node repeatWith();
  [[nodiscard]] Node tryStatement();
  void errorVariables(Node& tryStatement);
  [[nodiscard]] Node errorNumber();
  [[nodiscard]] std::string textDifference();
  [[nodiscard]] Node considering(NodeKind kind);
  [[nodiscard]] Node withClause();

  // ParserDeclarations.cpp: use, handlers, script objects, properties, variables
  [[nodiscard]] Node use();
  [[nodiscard]] Node handler();
  void handlerParameters(Node& handler);
  void labelledParameters(Node& handler);
  [[nodiscard]] Node parameter(std::string label);
  [[nodiscard]] Node scriptObject();
  [[nodiscard]] Node propertyDeclaration();
  [[nodiscard]] Node declaration(NodeKind kind);
  void noteLabelledHandlers();

  // ParserExpressions.cpp: operators, casts, lists and records
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

  // ParserReferences.cpp: `a of b`, `b's a`, `whose`
  [[nodiscard]] Node reference();
  [[nodiscard]] Node withOwners(Node primary);
  [[nodiscard]] Node ownedBy(Node owner);
  void attach(Node& reference, Node container) const;
  [[nodiscard]] Node filtered(Node reference);

  // ParserElements.cpp: `word 2`, `every item`, `first character`, ranges
  [[nodiscard]] const TypeTerm* typeAt(bool& plural, std::size_t& length) const;
  [[nodiscard]] std::string elementType();
  [[nodiscard]] bool seesOrdinalEnding() const;
  [[nodiscard]] Node ordinal(std::int64_t number);
  [[nodiscard]] Node rangeEnd();
  [[nodiscard]] Node elements(std::string_view type, bool plural);
  [[nodiscard]] std::optional<Node> pickedElements();

  // ParserNames.cpp: literals, keywords and names, the operands of references
  [[nodiscard]] Node primary();
  [[nodiscard]] Node literal();
  [[nodiscard]] Node named();
  [[nodiscard]] std::optional<Node> fixedWord();
  [[nodiscard]] std::optional<Node> phrase();
  [[nodiscard]] const NameTerm* termAt(std::span<const NameTerm> terms) const;
  [[nodiscard]] std::optional<Node> term();

  // ParserCommands.cpp: commands of the vocabularies, calls of handlers
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
  std::size_t at_ = 0;     ///< the cursor: the next token
  int depth_ = 0;          ///< see Nesting
  int loopDepth_ = 0;      ///< loops around the cursor, in its handler
  int conditionDepth_ = 0; ///< `whose` conditions around the cursor
  StopWords stopWords_;
  std::vector<Dictionary> dictionaries_;                ///< of the enclosing tells
  std::set<std::string, std::less<>> labelledHandlers_; ///< names, of the whole source

  friend class Nesting;
};

/// Counts one level of nesting for as long as it lives; throws ScriptError (`stackOverflow`) for
/// one too many.
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
