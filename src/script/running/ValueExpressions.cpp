#include "script/running/ValueExpressions.h"

#include "script/values/Coercion.h"
#include "script/values/Specifier.h"

namespace tavrel::script {
namespace {

class Application final : public Code {
public:
  explicit Application(CodePtr name) : name_(std::move(name)) {}
  Value evaluate(Frame& frame) const override {
    return Value(Ref(new Specifier({textOf(frame.runtime, name_->evaluate(frame)), {}})));
  }

private:
  CodePtr name_;
};

class FileOf final : public Code {
public:
  FileOf(std::string type, CodePtr path) : type_(std::move(type)), path_(std::move(path)) {}
  Value evaluate(Frame& frame) const override {
    return coerced(frame.runtime, path_->evaluate(frame), type_);
  }

private:
  std::string type_;
  CodePtr path_;
};

} // namespace

CodePtr applicationCode(CodePtr name) {
  return std::make_unique<Application>(std::move(name));
}

CodePtr fileCode(std::string type, CodePtr path) {
  return std::make_unique<FileOf>(std::move(type), std::move(path));
}

} // namespace tavrel::script
