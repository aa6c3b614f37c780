#pragma once

#include "script/values/Runtime.h"
#include "script/values/ScriptObject.h"

#include <array>
#include <memory>
#include <unordered_map>

namespace tavrel::script {

/// Where a handler runs: its variables, the script that defines it, and whom it speaks for.
struct Frame {
  static constexpr std::size_t few = 6;

  Frame(Runtime& frameRuntime, ScriptObject& definingScript, std::size_t count)
      : runtime(frameRuntime), self(definingScript), more(count > few ? count : 0),
        locals(count > few ? more.data() : inside.data()) {}
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;

  Runtime& runtime;
  ScriptObject& self;       ///< whose fields the code names
  Frame* creator = nullptr; ///< of the handler that makes a script, while its properties get values
  Value me;                 ///< the script that got the message, an heir of self or self
  Value target;             ///< of the enclosing `tell`; undefined outside of one
  Value result;             ///< of the last statement
  Value returned;           ///< what `return` gives back
  std::array<Value, few> inside;
  std::vector<Value> more;
  Value* locals;
};

/// Makes a value the target of the frame for as long as it lives.
class TargetGuard {
public:
  TargetGuard(Frame& frame, Value target) : frame_(frame), outer_(std::move(frame.target)) {
    frame.target = std::move(target);
  }
  TargetGuard(const TargetGuard&) = delete;
  TargetGuard& operator=(const TargetGuard&) = delete;
  ~TargetGuard() { frame_.target = std::move(outer_); }

private:
  Frame& frame_;
  Value outer_;
};

/// An expression, ready to run.
class Code {
public:
  Code() = default;
  Code(const Code&) = delete;
  Code& operator=(const Code&) = delete;
  virtual ~Code() = default;

  /// The value. Throws ScriptError.
  [[nodiscard]] virtual Value evaluate(Frame& frame) const = 0;
  /// The same, but an object of an application is left where it is instead of being fetched.
  [[nodiscard]] virtual Value designate(Frame& frame) const { return evaluate(frame); }
  /// A reference to the place instead of what it holds. Throws (`cannotCoerce`) for the variables
  /// of a handler, which do not last; the value of what is no place.
  [[nodiscard]] virtual Value refer(Frame& frame) const { return designate(frame); }
  /// What a reference to a part of this starts from: a reference where there can be one, else the
  /// value.
  [[nodiscard]] virtual Value reach(Frame& frame) const { return refer(frame); }
  /// The value as a handler is given it: a variable that holds a reference gives the reference.
  [[nodiscard]] virtual Value hand(Frame& frame) const { return evaluate(frame); }
  /// Makes the place hold the value; an error for what is no place.
  virtual void assign(Frame& frame, Value value) const;
  /// Moves the value out of a variable so that nobody shares it; elsewhere a plain evaluation.
  [[nodiscard]] virtual Value takeOut(Frame& frame) const { return evaluate(frame); }

  Span span;
};
using CodePtr = std::unique_ptr<const Code>;

enum class Flow : std::uint8_t { next, exitRepeat, returned };

/// A statement, ready to run.
class Action {
public:
  Action() = default;
  Action(const Action&) = delete;
  Action& operator=(const Action&) = delete;
  virtual ~Action() = default;
  [[nodiscard]] virtual Flow run(Frame& frame) const = 0;
  Span span;
};
using ActionPtr = std::unique_ptr<const Action>;

/// A row of statements. An error that knows no place gets that of its statement.
class Sequence {
public:
  void add(ActionPtr action) { actions_.push_back(std::move(action)); }
  [[nodiscard]] Flow run(Frame& frame) const;

private:
  std::vector<ActionPtr> actions_;
};

struct Parameter {
  const std::string* label = nullptr; ///< null for one by position; "of" for the direct one
  CodePtr place;
};

struct Handler {
  const std::string* name = nullptr;
  std::vector<Parameter> parameters;
  std::size_t localCount = 0;
  Sequence body;
  Span span;
};

/// What all instances of a script have in common.
struct Shape {
  std::string name;
  std::vector<const std::string*> fields;
  std::size_t propertyCount = 0;      ///< the first of the fields, those that persist
  std::vector<CodePtr> initialValues; ///< by field; null for variables without one
  std::size_t localCount = 0;         ///< that the initial values need

  /// Null without a handler of that name.
  [[nodiscard]] const Handler* handler(const std::string* handlerName) const;
  /// A handler of a name that none has yet.
  void add(Handler handler);

private:
  std::vector<Handler> handlers_;
  std::unordered_map<const std::string*, std::size_t> places_;
};

} // namespace tavrel::script
