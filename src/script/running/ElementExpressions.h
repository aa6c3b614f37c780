#pragma once

#include "script/running/Expression.h"

namespace tavrel::script {

// Elements of a container. `type` is their class, as `item` or `word`; without a container they
// are those of the target of the enclosing tell.

/// `word 2 of container`; the key is an index or a name.
[[nodiscard]] ExpressionPtr elementExpression(std::string type, ExpressionPtr container,
                                              ExpressionPtr key);
[[nodiscard]] ExpressionPtr everyElementExpression(std::string type, ExpressionPtr container);

/// `middle item of container` or `some item of container`, which is one by chance.
enum class PickedElement : std::uint8_t { middle, some };
[[nodiscard]] ExpressionPtr pickedElementExpression(PickedElement pick, std::string type,
                                                    ExpressionPtr container);

/// A bound of a range: an index among the elements of a class, which may differ from the class of
/// the range, as in `text from word 1 to word 3`.
struct BoundExpression {
  std::string type;
  ExpressionPtr index;
};
[[nodiscard]] ExpressionPtr elementRangeExpression(std::string type, ExpressionPtr container,
                                                   BoundExpression first, BoundExpression last);

/// `every item of container whose condition`; in the condition the target is each element in turn.
[[nodiscard]] ExpressionPtr filterExpression(std::string type, ExpressionPtr container,
                                             ExpressionPtr condition);

/// `beginning of list` or `end of list`: the first or last item, or the place to insert one before
/// or after it.
enum class InsertionPoint : std::uint8_t { beginning, end };
[[nodiscard]] ExpressionPtr insertionPointExpression(InsertionPoint point, ExpressionPtr container);

} // namespace tavrel::script
