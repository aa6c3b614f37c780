#include "platform/linux/applications/ExecLine.h"

#include "base/LocalUrl.h"

#include <algorithm>

namespace tavrel {

namespace {

class ExecParser {
public:
  explicit ExecParser(std::string_view text) : text_(text) {}

  std::optional<CommandLine> parse() {
    while (at_ < text_.size())
      if (text_[at_] == '"') {
        if (!readQuoted())
          return std::nullopt;
      } else {
        readPlain(text_[at_]);
        ++at_;
      }
    finishArgument();
    return arguments_.empty() ? std::nullopt : std::optional(arguments_);
  }

private:
  void readPlain(char c) {
    if (c == ' ' || c == '\t' || c == '\n')
      finishArgument();
    else
      append(c);
  }

  bool readQuoted() {
    hasArgument_ = true;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"') {
        ++at_;
        return true;
      }
      if (text_[at_] == '\\' && isEscapable(at_ + 1))
        ++at_;
      append(text_[at_]);
    }
    return false;
  }

  bool isEscapable(std::size_t at) const {
    return at < text_.size() &&
           std::string_view("\"`$\\").find(text_[at]) != std::string_view::npos;
  }

  void append(char c) {
    argument_ += c;
    hasArgument_ = true;
  }

  void finishArgument() {
    if (hasArgument_)
      arguments_.push_back(std::move(argument_));
    argument_.clear();
    hasArgument_ = false;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::string argument_;
  bool hasArgument_ = false;
  CommandLine arguments_;
};

/// A local file as its path. Another URL is passed as it is: most programs that take files take
/// URLs, too.
std::string fileArgument(const std::string& url) {
  return localPathOfUrl(url).value_or(url);
}

bool takesList(std::string_view argument) {
  return argument == "%F" || argument == "%U";
}

bool takesDocument(std::string_view argument) {
  for (std::size_t at = 0; at + 1 < argument.size(); ++at)
    if (argument[at] == '%') {
      if (std::string_view("fFuU").find(argument[at + 1]) != std::string_view::npos)
        return true;
      ++at;
    }
  return false;
}

/// The value of a field code within a longer argument.
std::string valueOf(char code, const ExecContext& context) {
  const std::string document = context.urls.empty() ? std::string() : context.urls.front();
  switch (code) {
  case '%':
    return "%";
  case 'f':
  case 'F':
    return fileArgument(document);
  case 'u':
  case 'U':
    return document;
  case 'c':
    return context.name;
  case 'k':
    return context.entryPath;
  default:
    return {};
  }
}

std::string expandWithin(std::string_view argument, const ExecContext& context) {
  std::string result;
  for (std::size_t at = 0; at < argument.size(); ++at) {
    if (argument[at] != '%')
      result += argument[at];
    else if (++at < argument.size())
      result += valueOf(argument[at], context);
  }
  return result;
}

bool isFieldCode(std::string_view argument) {
  return argument.size() == 2 && argument[0] == '%';
}

/// An argument that is only a field code becomes any number of arguments.
void expandFieldCode(char code, const ExecContext& context, CommandLine& line) {
  if (code == 'F')
    std::ranges::transform(context.urls, std::back_inserter(line), fileArgument);
  else if (code == 'U')
    line.insert(line.end(), context.urls.begin(), context.urls.end());
  else if (code == 'i' && !context.icon.empty())
    line.insert(line.end(), {"--icon", context.icon});
  else if (const std::string value = valueOf(code, context); !value.empty())
    line.push_back(value);
}

CommandLine expandOnce(const CommandLine& arguments, const ExecContext& context) {
  CommandLine line;
  for (const std::string& argument : arguments)
    if (isFieldCode(argument))
      expandFieldCode(argument[1], context, line);
    else
      line.push_back(expandWithin(argument, context));
  return line;
}

} // namespace

std::optional<CommandLine> splitExec(std::string_view exec) {
  return ExecParser(exec).parse();
}

std::vector<CommandLine> expandExec(const CommandLine& arguments, const ExecContext& context) {
  if (context.urls.empty() || std::ranges::any_of(arguments, takesList))
    return {expandOnce(arguments, context)};
  CommandLine single = arguments;
  if (std::ranges::none_of(arguments, takesDocument))
    single.push_back("%f");
  std::vector<CommandLine> lines;
  for (const std::string& url : context.urls)
    lines.push_back(expandOnce(single, {{url}, context.name, context.icon, context.entryPath}));
  return lines;
}

} // namespace tavrel
