#include "module/propcopy/excluded_layers.h"

#include <vector>

#include "module/frame/companions/ui_tools_lib.h"

namespace kovra {
namespace {

/// The layer's name in the thread's code page.
std::vector<char> narrowName(const std::wstring& name) {
  const int size = WideCharToMultiByte(CP_ACP, 0, name.c_str(), -1, nullptr, 0, nullptr, nullptr);
  std::vector<char> bytes(static_cast<std::size_t>(size) + 1);
  WideCharToMultiByte(CP_ACP, 0, name.c_str(), -1, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

}  // namespace

bool ExcludedLayers::contains(const AcDbEntity& entity) {
  ACHAR* layer = entity.layer();
  if (layer == nullptr) return false;
  const std::wstring name = layer;
  acutDelString(layer);
  const auto found = known_.find(name);
  if (found != known_.end()) return found->second;
  const bool excluded = IsLayerExcluded(narrowName(name).data());
  known_.emplace(name, excluded);
  return excluded;
}

}  // namespace kovra
