#pragma once

#include <string>
#include <unordered_map>

#include "module/frame/seam.h"

namespace kovra {

/// Answers which entities lie on layers that the project keeps from being edited. Asks once a
/// layer, since a drawing has few layers and many entities.
class ExcludedLayers {
 public:
  bool contains(const AcDbEntity& entity);

 private:
  std::unordered_map<std::wstring, bool> known_;
};

}  // namespace kovra
