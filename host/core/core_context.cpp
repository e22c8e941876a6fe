#include "host/core/core_context.h"

#include <stdexcept>
#include <utility>

namespace brevan {
namespace {

CoreContext* boundContext = nullptr;

}  // namespace

CoreContext& coreContext() {
  if (boundContext == nullptr) {
    throw std::logic_error("a core service was called while no CoreContextBinding was alive");
  }
  return *boundContext;
}

bool hasCoreContext() { return boundContext != nullptr; }

CoreContextBinding::CoreContextBinding(CoreContext& context) : outer_(std::exchange(boundContext, &context)) {}
CoreContextBinding::~CoreContextBinding() { boundContext = outer_; }

}  // namespace brevan
