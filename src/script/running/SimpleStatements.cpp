#include "script/running/SimpleStatements.h"

#include "script/running/HostEvents.h"
#include "script/values/Coercion.h"
#include "script/values/DeepCopy.h"
#include "script/values/Description.h"

#include <algorithm>

namespace tavrel::script {
namespace {

class ExpressionStatement final : public Statement {
public:
  ExpressionStatement(ExpressionPtr value, PriorResult prior)
      : value_(std::move(value)), prior_(prior) {}
  Flow run(Frame& frame) const override {
    if (prior_ == PriorResult::unused)
      frame.result = {};
    frame.result = value_->evaluate(frame);
    return Flow::next;
  }

private:
  ExpressionPtr value_;
  PriorResult prior_;
};

class Set final : public Statement {
public:
  Set(ExpressionPtr target, ExpressionPtr value, Assignment assignment)
      : target_(std::move(target)), value_(std::move(value)), assignment_(assignment) {}
  Flow run(Frame& frame) const override {
    Value value = value_->evaluate(frame);
    if (assignment_ == Assignment::copyValue)
      value = deepCopy(frame.runtime, value);
    frame.result = value;
    target_->assign(frame, std::move(value));
    return Flow::next;
  }

private:
  ExpressionPtr target_;
  ExpressionPtr value_;
  Assignment assignment_;
};

class Exit final : public Statement {
public:
  Flow run(Frame&) const override { return Flow::exitRepeat; }
};

class Return final : public Statement {
public:
  explicit Return(ExpressionPtr value) : value_(std::move(value)) {}
  Flow run(Frame& frame) const override {
    frame.returned = value_ ? value_->evaluate(frame) : Value();
    return Flow::returned;
  }

private:
  ExpressionPtr value_;
};

// The message of an error statement that gives none.
std::string defaultMessage(int number) {
  if (number == errors::userCanceled)
    return "User canceled.";
  if (number == errors::general)
    return "An error has occurred.";
  return "An error of type " + std::to_string(number) + " has occurred.";
}

class Error final : public Statement {
public:
  Error(ExpressionPtr message, ExpressionPtr number)
      : message_(std::move(message)), number_(std::move(number)) {}
  Flow run(Frame& frame) const override {
    ScriptError error{errors::general};
    if (number_)
      error.number = static_cast<int>(std::clamp<std::int64_t>(
          integerOf(frame.runtime, number_->evaluate(frame)), INT32_MIN, INT32_MAX));
    error.message =
        message_ ? textOf(frame.runtime, message_->evaluate(frame)) : defaultMessage(error.number);
    throw error;
  }

private:
  ExpressionPtr message_;
  ExpressionPtr number_;
};

class Log final : public Statement {
public:
  explicit Log(ExpressionPtr value) : value_(std::move(value)) {}
  Flow run(Frame& frame) const override {
    const Value value = value_->evaluate(frame);
    const bool isText = value.is(ValueKind::text);
    const std::string line = isText ? textOf(frame.runtime, value) : described(value);
    (void)performEvent(frame.runtime, {{}, "log", HostValue{line}, {}});
    return Flow::next;
  }

private:
  ExpressionPtr value_;
};

} // namespace

StatementPtr expressionStatement(ExpressionPtr value, PriorResult prior) {
  return std::make_unique<ExpressionStatement>(std::move(value), prior);
}

StatementPtr setStatement(ExpressionPtr target, ExpressionPtr value, Assignment assignment) {
  return std::make_unique<Set>(std::move(target), std::move(value), assignment);
}

StatementPtr exitStatement() {
  return std::make_unique<Exit>();
}

StatementPtr returnStatement(ExpressionPtr value) {
  return std::make_unique<Return>(std::move(value));
}

StatementPtr errorStatement(ExpressionPtr message, ExpressionPtr number) {
  return std::make_unique<Error>(std::move(message), std::move(number));
}

StatementPtr logStatement(ExpressionPtr value) {
  return std::make_unique<Log>(std::move(value));
}

} // namespace tavrel::script
