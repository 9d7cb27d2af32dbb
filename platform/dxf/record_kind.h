#pragma once

#include <cstdint>
#include <string_view>

namespace kovra::dxf {

/// Identifies a record for the whole life of its store, also new and erased ones.
using RecordIndex = std::uint32_t;
inline constexpr RecordIndex kNoRecord = 0xffffffffU;

/// Record types that some rule depends on. All others are kOther: their name is in their bytes.
enum class RecordKind : std::uint8_t {
  kOther,
  // Structure
  kSection,
  kEndSec,
  kTable,
  kEndTab,
  kBlock,
  kEndBlk,
  kEof,
  // Table entries
  kVport,
  kLtype,
  kLayer,
  kStyle,
  kView,
  kUcs,
  kAppId,
  kDimStyle,
  kBlockRecord,
  // Entities
  kText,
  kMText,
  kAttrib,
  kAttDef,
  kInsert,
  kSeqEnd,
  kPolyline,
  kVertex,
  kLwPolyline,
  kLine,
  kCircle,
  kArc,
  kEllipse,
  kPoint,
  kSolid,
  kTrace,
  k3dFace,
  kSpline,
  kHatch,
  kDimension,
  kLeader,
  kViewport,
  // Objects
  kDictionary,
  kLayout,
  kXRecord,
};

/// The kind of a group 0 value (blanks at its ends don't count).
RecordKind recordKind(std::string_view typeName);

enum class SectionKind : std::uint8_t {
  kNone,  ///< outside all sections
  kHeader,
  kClasses,
  kTables,
  kBlocks,
  kEntities,
  kObjects,
  kOther,
};

SectionKind sectionKind(std::string_view name);

}  // namespace kovra::dxf
