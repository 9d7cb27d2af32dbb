#include "module/propcopy/excluded_layers.h"

#include "module/frame/companions/ui_tools_lib.h"

namespace kovra {
namespace {

/// The name in the thread's code page.
std::string narrow(const ACHAR* name) {
  const int length = WideCharToMultiByte(CP_ACP, 0, name, -1, nullptr, 0, nullptr, nullptr);
  if (length <= 0) return {};
  std::string bytes(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_ACP, 0, name, -1, bytes.data(), length, nullptr, nullptr);
  bytes.pop_back();  // the null that ends it
  return bytes;
}

}  // namespace

bool ExcludedLayers::contains(const AcDbEntity& entity) {
  ACHAR* layer = entity.layer();
  if (layer == nullptr) return false;
  const auto [place, isNew] = known_.try_emplace(layer, false);
  if (isNew) place->second = IsLayerExcluded(narrow(layer).c_str());
  acutDelString(layer);
  return place->second;
}

}  // namespace kovra
