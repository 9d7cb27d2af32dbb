// Which records open as which class of entity. What isn't listed opens as AcDbEntity.
#include "platform/arx/database/record_classes.h"
#include "platform/arx/entities/block_reference.h"
#include "platform/arx/entities/mtext.h"
#include "platform/arx/entities/text.h"

namespace kovra::arx {
namespace {

[[maybe_unused]] const bool claimed = [] {
  openRecordsAs(dxf::RecordKind::kText, recordClass<AcDbText>());
  openRecordsAs(dxf::RecordKind::kAttrib, recordClass<AcDbAttribute>());
  openRecordsAs(dxf::RecordKind::kAttDef, recordClass<AcDbAttributeDefinition>());
  openRecordsAs(dxf::RecordKind::kMText, recordClass<AcDbMText>());
  openRecordsAs(dxf::RecordKind::kInsert, recordClass<AcDbBlockReference>());
  return true;
}();

}  // namespace
}  // namespace kovra::arx
