#pragma once

#include "script/running/Expression.h"

namespace tavrel::script {

/// What a member is one of: the container, or without one the target of the enclosing tell, else
/// the script.
[[nodiscard]] Value containerOf(Frame& frame, const ExpressionPtr& container);

/// A property or elements of a container. In a container that belongs to an application the member
/// is a longer specifier, which is fetched when its value is wanted; in one of the engine's own
/// values the member is looked up at once.
class MemberExpression : public Expression {
public:
  explicit MemberExpression(ExpressionPtr container) : container_(std::move(container)) {}

  Value evaluate(Frame& frame) const override;
  Value evaluateUnfetched(Frame& frame) const override;
  Value makeReference(Frame& frame) const override;
  void assign(Frame& frame, Value value) const override;

protected:
  /// The step from a container to the member, in an application.
  [[nodiscard]] virtual ObjectStep stepOf(Frame& frame) const = 0;
  /// The member of one of the engine's own values.
  [[nodiscard]] virtual Value memberOf(Frame& frame, const Value& container) const = 0;
  /// A reference to the member of a container; the member itself where it cannot be assigned to.
  /// `base` is the container or a reference to it.
  [[nodiscard]] virtual Value referenceToMember(Frame& frame, const Value& base,
                                                const Value& container) const;
  /// Throws ScriptError (`cannotSet`) where the member cannot be assigned to.
  virtual void setMember(Frame& frame, const Value& container, Value value) const;
  /// Whether the member is `contents`, which in a reference is what it refers to.
  [[nodiscard]] virtual bool isContents() const { return false; }

private:
  ExpressionPtr container_;
};

} // namespace tavrel::script
