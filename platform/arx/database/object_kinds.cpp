// What an index of a database names: its class, its owner, its block.
#include "platform/arx/database/block_table_record.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/entity.h"
#include "platform/arx/database/layer_locks.h"
#include "platform/arx/database/new_entity.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/record_classes.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

constexpr dxf::RecordIndex kFirstTableObject = 0xffffff00U;
constexpr dxf::RecordIndex kFirstSpaceObject = 0xfff00000U;

bool isSpaceObject(dxf::RecordIndex index) {
  return index >= kFirstSpaceObject && index < kFirstTableObject;
}

bool isTableEntry(dxf::RecordKind kind) {
  return kind >= dxf::RecordKind::kVport && kind <= dxf::RecordKind::kBlockRecord;
}

RecordClass tableClass(dxf::TableKind table) {
  switch (table) {
    case dxf::TableKind::kLayer:
      return recordClass<AcDbLayerTable>();
    case dxf::TableKind::kStyle:
      return recordClass<AcDbTextStyleTable>();
    case dxf::TableKind::kBlockRecord:
      return recordClass<AcDbBlockTable>();
    default:
      return recordClass<AcDbSymbolTable>();
  }
}

RecordClass tableEntryClass(dxf::RecordKind kind) {
  switch (kind) {
    case dxf::RecordKind::kLayer:
      return recordClass<AcDbLayerTableRecord>();
    case dxf::RecordKind::kStyle:
      return recordClass<AcDbTextStyleTableRecord>();
    case dxf::RecordKind::kBlockRecord:
      return recordClass<AcDbBlockTableRecord>();
    default:
      return recordClass<AcDbSymbolTableRecord>();
  }
}

/// Marks and ends of sections and tables: no object.
bool isFrame(dxf::RecordKind kind) {
  switch (kind) {
    case dxf::RecordKind::kSection:
    case dxf::RecordKind::kEndSec:
    case dxf::RecordKind::kTable:
    case dxf::RecordKind::kEndTab:
    case dxf::RecordKind::kEof:
      return true;
    default:
      return false;
  }
}

}  // namespace

dxf::RecordIndex tableObject(dxf::TableKind table) {
  return kFirstTableObject + static_cast<dxf::RecordIndex>(table);
}

bool isTableObject(dxf::RecordIndex index) {
  return index >= kFirstTableObject && index < kFirstTableObject + dxf::kTableKinds;
}

dxf::TableKind tableOfObject(dxf::RecordIndex index) {
  return static_cast<dxf::TableKind>(index - kFirstTableObject);
}

AcDbObject* ObjectTable::create(dxf::RecordIndex index) const {
  return recordClassOf(index).make();
}

bool ObjectTable::exists(dxf::RecordIndex index) const {
  if (index < database_.store().count() || isTableObject(index)) return true;
  return isSpaceObject(index) && index - kFirstSpaceObject < database_.structure().blockCount();
}

bool ObjectTable::erased(dxf::RecordIndex index) const {
  return index < database_.store().count() && database_.store().erased(index);
}

AcRxClass* ObjectTable::classOf(dxf::RecordIndex index) const {
  return recordClassOf(index).theClass;
}

RecordClass ObjectTable::recordClassOf(dxf::RecordIndex index) const {
  if (!exists(index)) return {};
  if (isTableObject(index)) return tableClass(tableOfObject(index));
  if (isSpaceObject(index)) return recordClass<AcDbBlockTableRecord>();
  const dxf::RecordKind kind = database_.store().kind(index);
  if (const RecordClass* claimed = claimedClass(kind)) return *claimed;
  if (kind == dxf::RecordKind::kBlock) return recordClass<AcDbBlockTableRecord>();
  if (isTableEntry(kind)) return tableEntryClass(kind);
  if (isFrame(kind)) return {};
  return isEntity(index) ? recordClass<AcDbEntity>() : recordClass<AcDbObject>();
}

bool ObjectTable::isEntity(dxf::RecordIndex index) const {
  if (index >= database_.store().count()) return false;
  const dxf::SectionKind section = database_.store().section(index);
  const dxf::RecordKind kind = database_.store().kind(index);
  return (section == dxf::SectionKind::kEntities || section == dxf::SectionKind::kBlocks) &&
         kind != dxf::RecordKind::kBlock && kind != dxf::RecordKind::kEndBlk &&
         kind != dxf::RecordKind::kSection && kind != dxf::RecordKind::kEndSec;
}

dxf::RecordIndex ObjectTable::blockObject(dxf::BlockNumber number) const {
  const dxf::Block& block = database_.structure().block(number);
  if (block.blockRecord != dxf::kNoRecord) return block.blockRecord;
  return block.begin != dxf::kNoRecord ? block.begin : kFirstSpaceObject + number;
}

dxf::BlockNumber ObjectTable::blockOfObject(dxf::RecordIndex index) const {
  if (isSpaceObject(index)) return index - kFirstSpaceObject;
  const dxf::Structure& structure = database_.structure();
  const auto has = [&](dxf::BlockNumber number) {
    const dxf::Block& block = structure.block(number);
    return block.blockRecord == index || block.begin == index;
  };
  const dxf::BlockNumber named = structure.findBlock(structure.entryName(index));
  if (named != dxf::kNoBlock && has(named)) return named;
  // Blocks without names, and later ones of the same name.
  for (dxf::BlockNumber number = 0; number < structure.blockCount(); ++number)
    if (has(number)) return number;
  return dxf::kNoBlock;
}

AcGePoint3d ObjectTable::blockOrigin(dxf::RecordIndex index) const {
  const dxf::BlockNumber number = blockOfObject(index);
  if (number == dxf::kNoBlock) return {};
  const dxf::RecordIndex begin = database_.structure().block(number).begin;
  if (begin == dxf::kNoRecord) return {};
  dxf::RecordDraft draft;
  database_.store().load(begin, draft);
  return readPoint(draft, {"AcDbBlockBegin", 10}).value_or(AcGePoint3d());
}

dxf::RecordIndex ObjectTable::ownerOf(dxf::RecordIndex index) const {
  if (isTableObject(index)) return dxf::kNoRecord;
  if (isSpaceObject(index)) return tableObject(dxf::TableKind::kBlockRecord);
  const dxf::Structure& structure = database_.structure();
  const dxf::RecordKind kind = database_.store().kind(index);
  if (kind == dxf::RecordKind::kBlock) return tableObject(dxf::TableKind::kBlockRecord);
  if (isTableEntry(kind))
    return tableObject(static_cast<dxf::TableKind>(static_cast<int>(kind) -
                                                   static_cast<int>(dxf::RecordKind::kVport)));
  if (!isEntity(index)) return database_.store().find(database_.store().owner(index));
  if (kind == dxf::RecordKind::kAttrib)
    if (const dxf::RecordIndex insert = structure.insertOf(index); insert != dxf::kNoRecord)
      return insert;
  const dxf::BlockNumber block = structure.blockOf(index);
  return block == dxf::kNoBlock ? dxf::kNoRecord : blockObject(block);
}

bool ObjectTable::onLockedLayer(dxf::RecordIndex index) const {
  // Not asked for layers themselves: each change of one has the locks collected again.
  if (!isEntity(index) || !database_.layerLocks().any()) return false;
  dxf::RecordDraft draft;
  database_.store().load(index, draft);
  return database_.layerLocks().isLocked(
      database_.store().codec().decode(readBytes(draft, {kEntityPart, 8})));
}

void ObjectTable::translateGroups(const AcDbObject& object, dxf::RecordDraft& draft) const {
  const dxf::RecordStore& store = database_.store();
  const dxf::RecordDraft& groups = object.groups();
  for (std::size_t i = 1; i < groups.size(); ++i) {
    const int code = groups.code(i);
    if (code == 100) {
      draft.appendMarker(groups.text(i));
    } else if (!isWritten(code, store.dialect())) {
      continue;
    } else if (groups.type(i) == dxf::ValueType::kText) {
      draft.appendText(code, object.codec().decode(groups.text(i)), store.codec());
    } else {
      draft.insertText(draft.size(), code, groups.asciiText(i));
    }
  }
}

bool ObjectTable::append(AcDbObject& entity, dxf::RecordIndex block) {
  const dxf::BlockNumber number = blockOfObject(block);
  if (number == dxf::kNoBlock) return false;
  const AcDbObjectId made =
      appendRecord(database_, number, entity.groups().typeName(),
                   [&](dxf::RecordDraft& draft) { translateGroups(entity, draft); });
  adopt(entity, made.index());
  // Closing brings a text's position in step with its alignment point.
  entity.modified_ = true;
  return true;
}

void ObjectTable::adopt(AcDbObject& object, dxf::RecordIndex index) {
  object.body_.reset();
  object.database_ = &database_;
  object.record_ = index;
  object.writer_ = true;
  object.modified_ = false;
  link(object);
}

}  // namespace kovra::arx
