#include "script/running/ScriptDefinition.h"

namespace tavrel::script {

void ScriptDefinition::add(Handler handler) {
  indices_.emplace(handler.name, handlers_.size());
  handlers_.push_back(std::move(handler));
}

const Handler* ScriptDefinition::handler(const std::string* handlerName) const {
  const auto found = indices_.find(handlerName);
  return found != indices_.end() ? &handlers_[found->second] : nullptr;
}

} // namespace tavrel::script
