#include "script/syntax/Lexer.h"

#include "base/Ascii.h"
#include "base/Decimal.h"

#include <array>
#include <charconv>

namespace tavrel::script {
namespace {

bool startsWord(char c) {
  return isLetter(c) || c == '_';
}

std::string lowered(std::string_view word) {
  std::string result(word);
  for (char& c : result)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  return result;
}

// How a symbol may be written, and the text of its token. Where one begins another, the longer
// stands first.
struct Symbol {
  std::string_view written;
  std::string_view meant;
};
constexpr auto symbols = std::to_array<Symbol>(
    {{"\u2260", "≠"}, {"\u2264", "≤"},   {"\u2265", "≥"}, {"<=", "≤"}, {">=", "≥"}, {"/=", "≠"},
     {"\u00F7", "/"}, {"\u2019s", "'s"}, {"'s", "'s"},    {"&", "&"},  {"(", "("},  {")", ")"},
     {"{", "{"},      {"}", "}"},        {",", ","},      {":", ":"},  {"+", "+"},  {"-", "-"},
     {"*", "*"},      {"/", "/"},        {"^", "^"},      {"=", "="},  {"<", "<"},  {">", ">"}});

class Lexer {
public:
  explicit Lexer(std::string_view source) : source_(source) {}

  std::vector<Token> run() {
    while (at_ < source_.size())
      next();
    add(TokenKind::lineEnd, at_);
    add(TokenKind::end, at_);
    return std::move(tokens_);
  }

private:
  [[nodiscard]] std::string_view rest() const { return source_.substr(at_); }
  [[nodiscard]] bool sees(std::string_view text) const { return rest().starts_with(text); }
  [[nodiscard]] char peek(std::size_t ahead = 0) const {
    return at_ + ahead < source_.size() ? source_[at_ + ahead] : '\0';
  }

  Token& add(TokenKind kind, std::size_t start, std::string text = {}) {
    const Span span{static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(at_ - start)};
    return tokens_.emplace_back(Token{kind, span, std::move(text)});
  }

  [[noreturn]] void refuse(std::size_t start, std::string message) const {
    const auto length = static_cast<std::uint32_t>(source_.size() - start);
    throw ScriptError{errors::syntax,
                      std::move(message),
                      {static_cast<std::uint32_t>(start), std::min(length, 1U)}};
  }

  void next() {
    if (skipBlank() || skipComment() || lineEnd())
      return;
    const char c = peek();
    if (isDigit(c) || (c == '.' && isDigit(peek(1))))
      number();
    else if (startsWord(c))
      word();
    else if (c == '"')
      text();
    else if (c == '|')
      barred();
    else if (sees("\u00AB"))
      typeCode();
    else
      symbol();
  }

  bool skipBlank() {
    for (std::string_view blank : {" ", "\t", "\u00A0", "\uFEFF"})
      if (sees(blank)) {
        at_ += blank.size();
        return true;
      }
    if (!sees("\u00AC"))
      return false;
    at_ += 2;
    continueLine();
    return true;
  }

  // What follows a continuation sign on its line does not count.
  void continueLine() {
    while (at_ < source_.size() && peek() != '\n' && peek() != '\r')
      ++at_;
    if (sees("\r\n"))
      ++at_;
    at_ = std::min(at_ + 1, source_.size());
  }

  bool skipComment() {
    if (sees("--") || peek() == '#') {
      while (at_ < source_.size() && peek() != '\n' && peek() != '\r')
        ++at_;
      return true;
    }
    if (!sees("(*"))
      return false;
    const std::size_t start = at_;
    int depth = 0;
    do {
      if (at_ >= source_.size())
        refuse(start, "Expected “*)” but found end of script.");
      if (sees("(*") || sees("*)")) {
        depth += sees("(*") ? 1 : -1;
        ++at_;
      }
      ++at_;
    } while (depth > 0);
    return true;
  }

  bool lineEnd() {
    if (peek() != '\n' && peek() != '\r')
      return false;
    const std::size_t start = at_++;
    add(TokenKind::lineEnd, start);
    return true;
  }

  void number() {
    const std::size_t start = at_;
    bool isReal = false;
    const auto digits = [&] {
      while (isDigit(peek()))
        ++at_;
    };
    digits();
    if (peek() == '.' && isDigit(peek(1))) {
      isReal = true;
      ++at_;
      digits();
    }
    const std::size_t sign = peek(1) == '+' || peek(1) == '-' ? 1 : 0;
    if ((peek() == 'e' || peek() == 'E') && isDigit(peek(1 + sign))) {
      isReal = true;
      at_ += 1 + sign;
      digits();
    }
    addNumber(start, isReal);
  }

  void addNumber(std::size_t start, bool isReal) {
    const char* first = source_.data() + start;
    const char* last = source_.data() + at_;
    Token& token = add(TokenKind::integer, start);
    if (!isReal && std::from_chars(first, last, token.integer).ec == std::errc())
      return;
    token.kind = TokenKind::real;
    const auto real = decimalNumber(source_.substr(start, at_ - start));
    if (!real)
      refuse(start, "The number is too large.");
    token.real = *real;
  }

  // "isn't" and "doesn't" are two tokens, "is" and "not"; "app" is short for "application".
  void word() {
    const std::size_t start = at_;
    while (startsWord(peek()) || isDigit(peek()))
      ++at_;
    const std::string word = lowered(source_.substr(start, at_ - start));
    const bool negated = word == "isn" || word == "doesn" || word == "aren" || word == "don";
    const std::size_t sign = sees("'t") ? 2 : sees("\u2019t") ? 4 : 0;
    if (!negated || sign == 0) {
      add(TokenKind::word, start, word == "app" ? std::string("application") : word);
      return;
    }
    at_ += sign;
    add(TokenKind::word, start, word.substr(0, word.size() - 1));
    add(TokenKind::word, start, "not");
  }

  void text() {
    const std::size_t start = at_++;
    std::string value;
    while (peek() != '"') {
      if (at_ >= source_.size())
        refuse(start, "Expected “\"” but found end of script.");
      value += peek() == '\\' ? escaped() : peek();
      ++at_;
    }
    ++at_;
    add(TokenKind::text, start, std::move(value));
  }

  char escaped() {
    ++at_;
    switch (peek()) {
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    case '"':
    case '\\':
      return peek();
    default:
      refuse(at_ - 1, "Expected “\"” but found unknown token.");
    }
  }

  void barred() {
    const std::size_t start = at_++;
    while (at_ < source_.size() && peek() != '|' && peek() != '\n')
      ++at_;
    if (peek() != '|')
      refuse(start, "Expected “|” but found end of line.");
    ++at_;
    add(TokenKind::name, start, lowered(source_.substr(start + 1, at_ - start - 2)));
  }

  // The code in «class utf8».
  void typeCode() {
    const std::size_t start = at_;
    const std::size_t close = source_.find("\u00BB", at_);
    constexpr std::string_view opening = "\u00ABclass ";
    if (!sees(opening) || close == std::string_view::npos)
      refuse(start, "Expected “»” but found unknown token.");
    at_ = close + 2;
    const std::size_t from = start + opening.size();
    add(TokenKind::type, start, std::string(source_.substr(from, close - from)));
  }

  void symbol() {
    for (const Symbol& symbol : symbols)
      if (sees(symbol.written)) {
        const std::size_t start = at_;
        at_ += symbol.written.size();
        add(TokenKind::symbol, start, std::string(symbol.meant));
        return;
      }
    refuse(at_, "Expected expression but found unknown token.");
  }

  std::string_view source_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
};

} // namespace

std::vector<Token> tokenize(std::string_view source) {
  return Lexer(source).run();
}

} // namespace tavrel::script
