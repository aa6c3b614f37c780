#pragma once

#include "script/running/AdditionCall.h"
#include "script/running/Expression.h"

namespace tavrel::script {

// The makers of all expressions that can run. A null code stands for what the source leaves out.

// Variables.cpp
[[nodiscard]] CodePtr constantCode(Value value);
[[nodiscard]] CodePtr localCode(std::size_t slot, const std::string* name);
/// `outward` counts the scripts from the one that runs to the one whose field it is.
[[nodiscard]] CodePtr creatorLocalCode(std::size_t slot, const std::string* name);
/// The same, and undefined where the variable is not set yet.
[[nodiscard]] CodePtr capturedCode(std::size_t slot);
[[nodiscard]] CodePtr fieldCode(std::size_t outward, std::size_t index, const std::string* name);
/// A name that nothing declares: a property of the target of the enclosing tell, or an error.
[[nodiscard]] CodePtr unknownCode(const std::string* name);
[[nodiscard]] CodePtr meCode();
[[nodiscard]] CodePtr itCode();
[[nodiscard]] CodePtr resultCode();
[[nodiscard]] CodePtr patternCode(std::vector<CodePtr> places);

// Expressions.cpp
using LabelledCode = std::pair<const std::string*, CodePtr>;
[[nodiscard]] CodePtr listCode(std::vector<CodePtr> elements);
[[nodiscard]] CodePtr recordCode(std::vector<LabelledCode> entries);
[[nodiscard]] CodePtr operatorCode(std::string_view name, CodePtr left, CodePtr right);
[[nodiscard]] CodePtr negationCode(CodePtr operand);
[[nodiscard]] CodePtr inversionCode(CodePtr operand);
[[nodiscard]] CodePtr castCode(CodePtr value, CodePtr type);
[[nodiscard]] CodePtr dateCode(CodePtr text);
[[nodiscard]] CodePtr scriptCode(std::shared_ptr<const Shape> shape);
[[nodiscard]] CodePtr referenceCode(CodePtr target);

// PropertyCode.cpp
[[nodiscard]] CodePtr propertyCode(const std::string* name, CodePtr container);

// ElementCode.cpp
[[nodiscard]] CodePtr elementCode(std::string type, CodePtr container, CodePtr key);
[[nodiscard]] CodePtr everyCode(std::string type, CodePtr container);
enum class Pick : std::uint8_t { middle, some };
[[nodiscard]] CodePtr pickCode(Pick pick, std::string type, CodePtr container);
struct BoundCode {
  std::string type;
  CodePtr index;
};
[[nodiscard]] CodePtr rangeCode(std::string type, CodePtr container, BoundCode first,
                                BoundCode last);

// FilterCode.cpp
[[nodiscard]] CodePtr filterCode(std::string type, CodePtr container, CodePtr condition);

// InsertionCode.cpp
enum class Place : std::uint8_t { beginning, end };
[[nodiscard]] CodePtr insertionCode(Place place, CodePtr container);

// ObjectCode.cpp
[[nodiscard]] CodePtr applicationCode(CodePtr name);
[[nodiscard]] CodePtr fileCode(std::string type, CodePtr path);

// Messages.cpp
[[nodiscard]] CodePtr callCode(const std::string* name, CodePtr target,
                               std::vector<CodePtr> arguments);
[[nodiscard]] CodePtr labelledCallCode(const std::string* name, CodePtr target,
                                       std::vector<LabelledCode> arguments);
[[nodiscard]] CodePtr resumeCode(const std::string* name, std::vector<CodePtr> arguments);
[[nodiscard]] CodePtr labelledResumeCode(const std::string* name,
                                         std::vector<LabelledCode> arguments);
/// `addition` does the command; without one an application or the desktop is asked.
[[nodiscard]] CodePtr commandCode(const std::string& name, Addition addition, CodePtr direct,
                                  std::vector<LabelledCode> parameters);

// PartCode.cpp
/// The value of an object of an application or behind a reference; any other value as it is.
[[nodiscard]] Value fetched(Runtime& runtime, Value value);

} // namespace tavrel::script
