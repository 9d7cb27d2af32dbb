#include "platform/dxf/record_kind.h"

#include <array>
#include <cstddef>

#include "platform/dxf/values.h"

namespace kovra::dxf {

namespace {

struct KindName {
  std::string_view name;
  RecordKind kind;
};

constexpr KindName kNames[] = {
    {"SECTION", RecordKind::kSection},
    {"ENDSEC", RecordKind::kEndSec},
    {"TABLE", RecordKind::kTable},
    {"ENDTAB", RecordKind::kEndTab},
    {"BLOCK", RecordKind::kBlock},
    {"ENDBLK", RecordKind::kEndBlk},
    {"EOF", RecordKind::kEof},
    {"VPORT", RecordKind::kVport},
    {"LTYPE", RecordKind::kLtype},
    {"LAYER", RecordKind::kLayer},
    {"STYLE", RecordKind::kStyle},
    {"VIEW", RecordKind::kView},
    {"UCS", RecordKind::kUcs},
    {"APPID", RecordKind::kAppId},
    {"DIMSTYLE", RecordKind::kDimStyle},
    {"BLOCK_RECORD", RecordKind::kBlockRecord},
    {"TEXT", RecordKind::kText},
    {"MTEXT", RecordKind::kMText},
    {"ATTRIB", RecordKind::kAttrib},
    {"ATTDEF", RecordKind::kAttDef},
    {"INSERT", RecordKind::kInsert},
    {"SEQEND", RecordKind::kSeqEnd},
    {"POLYLINE", RecordKind::kPolyline},
    {"VERTEX", RecordKind::kVertex},
    {"LWPOLYLINE", RecordKind::kLwPolyline},
    {"LINE", RecordKind::kLine},
    {"CIRCLE", RecordKind::kCircle},
    {"ARC", RecordKind::kArc},
    {"ELLIPSE", RecordKind::kEllipse},
    {"POINT", RecordKind::kPoint},
    {"SOLID", RecordKind::kSolid},
    {"TRACE", RecordKind::kTrace},
    {"3DFACE", RecordKind::k3dFace},
    {"SPLINE", RecordKind::kSpline},
    {"HATCH", RecordKind::kHatch},
    {"DIMENSION", RecordKind::kDimension},
    {"ARC_DIMENSION", RecordKind::kDimension},
    {"LARGE_RADIAL_DIMENSION", RecordKind::kDimension},
    {"LEADER", RecordKind::kLeader},
    {"VIEWPORT", RecordKind::kViewport},
    {"DICTIONARY", RecordKind::kDictionary},
    {"LAYOUT", RecordKind::kLayout},
    {"XRECORD", RecordKind::kXRecord},
};

constexpr std::size_t kSlots = 256;

constexpr std::size_t slotOf(std::string_view name) {
  std::size_t hash = name.size();
  for (const char c : name) hash = hash * 31 + static_cast<unsigned char>(c);
  return (hash ^ (hash >> 7U)) % kSlots;
}

// Open addressing over the names: one probe for nearly every record of a drawing.
constexpr std::array<std::uint8_t, kSlots> makeSlots() {
  std::array<std::uint8_t, kSlots> slots{};
  std::uint8_t number = 0;
  for (const KindName& entry : kNames) {
    std::size_t slot = slotOf(entry.name);
    while (slots[slot] != 0) slot = (slot + 1) % kSlots;
    slots[slot] = ++number;
  }
  return slots;
}

constexpr std::array<std::uint8_t, kSlots> kSlotTable = makeSlots();

constexpr std::size_t kLongestName = 22;  // LARGE_RADIAL_DIMENSION

}  // namespace

RecordKind recordKind(std::string_view typeName) {
  const std::string_view name = trimmed(typeName);
  if (name.size() > kLongestName) return RecordKind::kOther;
  for (std::size_t slot = slotOf(name); kSlotTable[slot] != 0; slot = (slot + 1) % kSlots) {
    const KindName& entry = kNames[kSlotTable[slot] - 1U];
    if (entry.name == name) return entry.kind;
  }
  return RecordKind::kOther;
}

SectionKind sectionKind(std::string_view name) {
  name = trimmed(name);
  if (name == "HEADER") return SectionKind::kHeader;
  if (name == "CLASSES") return SectionKind::kClasses;
  if (name == "TABLES") return SectionKind::kTables;
  if (name == "BLOCKS") return SectionKind::kBlocks;
  if (name == "ENTITIES") return SectionKind::kEntities;
  if (name == "OBJECTS") return SectionKind::kObjects;
  return SectionKind::kOther;
}

}  // namespace kovra::dxf
