#include "platform/arx/database/drawing_defaults.h"

#include "platform/arx/base/symbol_names.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {

bool isLinetype(const dxf::Structure& structure, std::wstring_view name) {
  return dxf::equalNames(name, L"BYLAYER") || dxf::equalNames(name, L"BYBLOCK") ||
         dxf::equalNames(name, L"CONTINUOUS") ||
         structure.findEntry(dxf::TableKind::kLtype, name) != dxf::kNoRecord;
}

std::wstring currentLayer(const dxf::Structure& structure) {
  std::wstring name = structure.textVariable("$CLAYER").value_or(L"0");
  const bool canBe =
      isSymbolName(name) ||
      (!name.empty() && structure.findEntry(dxf::TableKind::kLayer, name) != dxf::kNoRecord);
  return canBe ? name : L"0";
}

std::wstring currentTextStyle(const dxf::Structure& structure) {
  std::wstring name = structure.textVariable("$TEXTSTYLE").value_or(std::wstring());
  return name.empty() ? L"STANDARD" : name;
}

std::wstring currentLinetype(const dxf::Structure& structure) {
  std::wstring name = structure.textVariable("$CELTYPE").value_or(L"ByLayer");
  return isLinetype(structure, name) ? name : L"ByLayer";
}

std::int64_t currentColor(const dxf::Structure& structure) {
  const std::int64_t color = structure.integerVariable("$CECOLOR").value_or(kColorByLayer);
  return color >= 0 && color < kColorByLayer ? color : kColorByLayer;
}

}  // namespace kovra::arx
