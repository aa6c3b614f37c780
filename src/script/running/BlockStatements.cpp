#include "script/running/BlockStatements.h"

#include "script/values/Coercion.h"
#include "script/values/Reference.h"

namespace tavrel::script {
namespace {

class If final : public Statement {
public:
  If(std::vector<ConditionalBlock> branches, Block otherwise)
      : branches_(std::move(branches)), otherwise_(std::move(otherwise)) {}
  Flow run(Frame& frame) const override {
    for (const ConditionalBlock& branch : branches_)
      if (booleanOf(branch.condition->evaluate(frame)))
        return branch.body.run(frame);
    return otherwise_.run(frame);
  }

private:
  std::vector<ConditionalBlock> branches_;
  Block otherwise_;
};

class Try final : public Statement {
public:
  explicit Try(TryClauses clauses) : clauses_(std::move(clauses)) {}
  Flow run(Frame& frame) const override {
    try {
      return clauses_.body.run(frame);
    } catch (const ScriptError& error) {
      // A run that is to stop stops: its own `try` must not keep it going.
      if (frame.runtime.isUsedUp() || frame.runtime.host.shouldStop())
        throw;
      if (clauses_.caughtNumber && *clauses_.caughtNumber != error.number)
        throw;
      return runErrorBlock(frame, error);
    }
  }

private:
  Flow runErrorBlock(Frame& frame, const ScriptError& error) const {
    if (clauses_.messageVariable)
      clauses_.messageVariable->assign(frame, frame.runtime.text(error.message));
    if (clauses_.numberVariable)
      clauses_.numberVariable->assign(frame, Value::integer(error.number));
    return clauses_.errorBlock.run(frame);
  }

  TryClauses clauses_;
};

class Tell final : public Statement {
public:
  Tell(ExpressionPtr target, Block body) : target_(std::move(target)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    const TargetGuard guard(frame, dereferenced(frame.runtime, target_->evaluateUnfetched(frame)));
    return body_.run(frame);
  }

private:
  ExpressionPtr target_;
  Block body_;
};

class Consider final : public Statement {
public:
  Consider(Consideration consideration, std::vector<std::string> differences, Block body)
      : considers_(consideration == Consideration::considering),
        differences_(std::move(differences)), body_(std::move(body)) {}
  Flow run(Frame& frame) const override {
    const Restore restore{frame.runtime.considered, frame.runtime.considered};
    for (const std::string& each : differences_)
      set(frame.runtime.considered, each);
    return body_.run(frame);
  }

private:
  struct Restore {
    Considered& now;
    Considered before;
    ~Restore() { now = before; }
  };

  void set(Considered& considered, const std::string& difference) const {
    if (difference == "case")
      considered.caseDifferences = considers_;
    else if (difference == "white space")
      considered.whiteSpace = considers_;
    else if (difference == "hyphens")
      considered.hyphens = considers_;
    else if (difference == "punctuation")
      considered.punctuation = considers_;
    else if (difference == "diacriticals")
      considered.diacriticals = considers_;
    else if (difference == "numeric strings")
      considered.numericStrings = considers_;
  }

  bool considers_;
  std::vector<std::string> differences_;
  Block body_;
};

} // namespace

StatementPtr ifStatement(std::vector<ConditionalBlock> branches, Block otherwise) {
  return std::make_unique<If>(std::move(branches), std::move(otherwise));
}

StatementPtr tryStatement(TryClauses clauses) {
  return std::make_unique<Try>(std::move(clauses));
}

StatementPtr tellStatement(ExpressionPtr target, Block body) {
  return std::make_unique<Tell>(std::move(target), std::move(body));
}

StatementPtr consideringStatement(Consideration consideration, std::vector<std::string> differences,
                                  Block body) {
  return std::make_unique<Consider>(consideration, std::move(differences), std::move(body));
}

} // namespace tavrel::script
