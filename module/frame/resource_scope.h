#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Makes the string and template module current while a dialog is constructed. The former handle
/// comes back on every way out of the scope.
class ResourceScope {
 public:
  ResourceScope();
  ~ResourceScope();
  ResourceScope(const ResourceScope&) = delete;
  ResourceScope& operator=(const ResourceScope&) = delete;

 private:
  HINSTANCE former_;
};

}  // namespace kovra
