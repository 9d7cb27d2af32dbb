#include "module/drawing/model_space.h"

#include "module/drawing/symbol_tables.h"

namespace kovra {
namespace {

bool append(AcDbDatabase* database, AcDbEntity* entity) {
  const BlockTable blocks(database);
  CRecord<AcDbBlockTableRecord> space;
  return blocks.openRecord(space, ACDB_MODEL_SPACE, AcDb::kForWrite) &&
         space->appendAcDbEntity(entity) == Acad::eOk;
}

}  // namespace

bool HasModelSpace(AcDbDatabase* database) {
  const BlockTable blocks(database);
  CRecord<AcDbBlockTableRecord> space;
  return blocks.openRecord(space, ACDB_MODEL_SPACE, AcDb::kForRead);
}

void AppendToModelSpace(AcDbDatabase* database, std::span<AcDbEntity* const> entities,
                        const ACHAR* layer) {
  for (AcDbEntity* entity : entities) {
    entity->setLayer(layer);
    if (append(database, entity)) {
      entity->close();
    } else {
      delete entity;
    }
  }
}

}  // namespace kovra
