#include "module/frame/resource_scope.h"

#include "module/frame/attach.h"

namespace kovra {

ResourceScope::ResourceScope() : former_(AfxGetResourceHandle()) {
  AfxSetResourceHandle(ResourceModule != nullptr ? ResourceModule : OwnModule());
}

ResourceScope::~ResourceScope() {
  AfxSetResourceHandle(former_);
}

}  // namespace kovra
