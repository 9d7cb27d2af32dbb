#include "platform/arx/database/entity_order.h"

#include "platform/arx/database/database.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace kovra::arx {

dxf::BlockNumber currentSpace(const AcDbDatabase& database) {
  if (database.currentSpaceId() == database.modelSpaceId()) return dxf::kModelSpace;
  const dxf::BlockNumber paper = database.structure().paperSpace();
  return paper == dxf::kNoBlock ? dxf::kModelSpace : paper;
}

namespace {

void forEachOf(const dxf::Structure& structure, dxf::BlockNumber block,
               const std::function<void(dxf::RecordIndex)>& work) {
  for (dxf::RecordIndex record = structure.firstEntity(block); record != dxf::kNoRecord;
       record = structure.nextEntity(block, record))
    work(record);
}

}  // namespace

void forEachEntity(const AcDbDatabase& database,
                   const std::function<void(dxf::RecordIndex)>& work) {
  forEachOf(database.structure(), currentSpace(database), work);
}

void forEachEntityOfAllSpaces(const AcDbDatabase& database,
                              const std::function<void(dxf::RecordIndex)>& work) {
  const dxf::Structure& structure = database.structure();
  forEachOf(structure, dxf::kModelSpace, work);
  for (dxf::BlockNumber block = 0; block < structure.blockCount(); ++block)
    if (block != dxf::kModelSpace && structure.block(block).space)
      forEachOf(structure, block, work);
}

dxf::RecordIndex attributeOwner(const AcDbDatabase& database, dxf::RecordIndex record) {
  const bool isAttribute =
      database.store().kind(record) == dxf::RecordKind::kAttrib && !database.store().erased(record);
  return isAttribute ? database.structure().insertOf(record) : dxf::kNoRecord;
}

bool isEntityOfCurrentSpace(const AcDbDatabase& database, dxf::RecordIndex record) {
  const dxf::RecordStore& store = database.store();
  const dxf::RecordKind kind = store.kind(record);
  const dxf::SectionKind section = store.section(record);
  const bool follows =
      kind == dxf::RecordKind::kVertex || kind == dxf::RecordKind::kSeqEnd ||
      (kind == dxf::RecordKind::kAttrib && database.structure().insertOf(record) != dxf::kNoRecord);
  const bool inSpace =
      section == dxf::SectionKind::kEntities || section == dxf::SectionKind::kBlocks;
  return inSpace && !store.erased(record) && !follows && kind != dxf::RecordKind::kBlock &&
         kind != dxf::RecordKind::kEndBlk &&
         database.structure().blockOf(record) == currentSpace(database);
}

}  // namespace kovra::arx
