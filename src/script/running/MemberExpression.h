#pragma once

#include "script/running/ValueExpressions.h"

namespace tavrel::script {

/// What a part without a container is of: the target of the enclosing tell, else the script.
[[nodiscard]] Value containerOf(Frame& frame, const CodePtr& container);

/// A part of a container: fetched when its value is wanted, left where it is otherwise.
class PartCode : public Code {
public:
  explicit PartCode(CodePtr container) : container_(std::move(container)) {}

  Value evaluate(Frame& frame) const override { return fetched(frame.runtime, designate(frame)); }
  Value designate(Frame& frame) const override;
  Value refer(Frame& frame) const override;
  void assign(Frame& frame, Value value) const override;

protected:
  /// The way to the part, in an application.
  [[nodiscard]] virtual ObjectStep stepOf(Frame& frame) const = 0;
  /// The part of a value of the engine.
  [[nodiscard]] virtual Value partOf(Frame& frame, const Value& whole) const = 0;
  /// A reference to the part; the part itself for what cannot be written. `place` is the container
  /// or a reference to it, `whole` the container.
  [[nodiscard]] virtual Value placeOfPart(Frame& frame, const Value& place,
                                          const Value& whole) const;
  virtual void setPart(Frame& frame, const Value& whole, Value value) const;
  /// Whether the part is what a reference stands for.
  [[nodiscard]] virtual bool isContents() const { return false; }

private:
  CodePtr container_;
};

} // namespace tavrel::script
