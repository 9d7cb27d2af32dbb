#pragma once

#include <array>
#include <string_view>

#include "platform/dxf/structure.h"

namespace kovra::dxf {

/// What is written for a table and its entries.
struct TableTraits {
  RecordKind entry;
  std::string_view name;    ///< group 2 of TABLE, and the type of the entries
  std::string_view marker;  ///< subclass of the entries
};

inline constexpr std::array<TableTraits, kTableKinds> kTableTraits{{
    {RecordKind::kVport, "VPORT", "AcDbViewportTableRecord"},
    {RecordKind::kLtype, "LTYPE", "AcDbLinetypeTableRecord"},
    {RecordKind::kLayer, "LAYER", "AcDbLayerTableRecord"},
    {RecordKind::kStyle, "STYLE", "AcDbTextStyleTableRecord"},
    {RecordKind::kView, "VIEW", "AcDbViewTableRecord"},
    {RecordKind::kUcs, "UCS", "AcDbUCSTableRecord"},
    {RecordKind::kAppId, "APPID", "AcDbRegAppTableRecord"},
    {RecordKind::kDimStyle, "DIMSTYLE", "AcDbDimStyleTableRecord"},
    {RecordKind::kBlockRecord, "BLOCK_RECORD", "AcDbBlockTableRecord"},
}};

inline const TableTraits& traits(TableKind table) {
  return kTableTraits[static_cast<std::size_t>(table)];
}

/// The table that entries of this kind lie in; kTableKinds if the kind is no table entry.
inline std::size_t tableNumber(RecordKind entry) {
  std::size_t number = 0;
  while (number < kTableKinds && kTableTraits[number].entry != entry) ++number;
  return number;
}

}  // namespace kovra::dxf
