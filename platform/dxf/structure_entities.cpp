#include <algorithm>

#include "platform/dxf/structure.h"

// Entities of blocks and spaces in drawing order, and the attributes of block references.
namespace kovra::dxf {

/// False for the records that end a block or a section.
bool Structure::isEntityPlace(RecordIndex record) const {
  const RecordKind kind = store_.kind(record);
  return kind < RecordKind::kSection || kind > RecordKind::kEof;
}

/// True for an attribute, and for the text of a multi-line attribute that earlier releases write as
/// a record of its own between the attributes.
bool Structure::continuesAttributes(RecordIndex record) const {
  if (record == kNoRecord) return false;
  if (store_.kind(record) == RecordKind::kAttrib) return true;
  if (store_.kind(record) != RecordKind::kMText) return false;
  const RecordIndex next = store_.next(record);
  if (next == kNoRecord) return false;
  return store_.kind(next) == RecordKind::kAttrib || store_.kind(next) == RecordKind::kSeqEnd;
}

RecordIndex Structure::pastSubordinates(RecordIndex entity) const {
  RecordIndex next = store_.next(entity);
  const RecordKind kind = store_.kind(entity);
  if (kind == RecordKind::kInsert && store_.attributesFollow(entity)) {
    while (continuesAttributes(next)) next = store_.next(next);
  } else if (kind == RecordKind::kPolyline) {
    while (next != kNoRecord && store_.kind(next) == RecordKind::kVertex) next = store_.next(next);
  } else {
    return next;
  }
  const bool ended = next != kNoRecord && store_.kind(next) == RecordKind::kSeqEnd;
  return ended ? store_.next(next) : next;
}

/// The first record of the first ENTITIES section that begins at a record or behind it; kNoRecord
/// if there is none.
RecordIndex Structure::firstInEntities(RecordIndex from) const {
  const auto found =
      std::partition_point(entitySections_.begin(), entitySections_.end(),
                           [from](const EntitySection& section) { return section.begin < from; });
  return found == entitySections_.end() ? kNoRecord : store_.next(found->begin);
}

/// Where to go on at a record that is no entity: behind a block its space goes on in the ENTITIES
/// sections, behind such a section in the next one.
RecordIndex Structure::pastMark(const Block& block, RecordIndex mark) const {
  const RecordKind kind = store_.kind(mark);
  if (!block.inEntities) return kNoRecord;
  if (kind == RecordKind::kSection || kind == RecordKind::kEof) return firstInEntities(mark);
  if (store_.section(mark) == SectionKind::kBlocks) return firstInEntities(0);
  return kind == RecordKind::kEndSec ? firstInEntities(mark) : store_.next(mark);
}

/// The entity at `candidate` or the next one behind it that belongs to the block.
RecordIndex Structure::settle(BlockNumber number, RecordIndex candidate) const {
  const Block& block = blocks_[number];
  while (candidate != kNoRecord) {
    if (!isEntityPlace(candidate)) {
      candidate = pastMark(block, candidate);
    } else if (!store_.erased(candidate) && store_.kind(candidate) != RecordKind::kSeqEnd &&
               (store_.section(candidate) != SectionKind::kEntities ||
                spaceOf(candidate) == number)) {
      return candidate;
    } else {
      candidate = pastSubordinates(candidate);
    }
  }
  return kNoRecord;
}

RecordIndex Structure::firstEntity(BlockNumber number) const {
  const Block& at = block(number);
  if (at.begin != kNoRecord) return settle(number, store_.next(at.begin));
  return at.inEntities ? settle(number, firstInEntities(0)) : kNoRecord;
}

RecordIndex Structure::nextEntity(BlockNumber number, RecordIndex entity) const {
  refreshBlocks();
  return settle(number, pastSubordinates(entity));
}

RecordIndex Structure::entityAnchor(BlockNumber number) {
  const Block at = block(number);
  if (!at.inEntities) return at.end;
  if (entitySections_.empty()) addSection("ENTITIES", SectionKind::kObjects);
  return entitySections_.back().end;
}

RecordIndex Structure::firstAttribute(RecordIndex insert) const {
  if (store_.kind(insert) != RecordKind::kInsert || !store_.attributesFollow(insert)) {
    return kNoRecord;
  }
  return nextAttribute(insert);
}

RecordIndex Structure::nextAttribute(RecordIndex attribute) const {
  RecordIndex next = store_.next(attribute);
  while (continuesAttributes(next)) {
    if (store_.kind(next) == RecordKind::kAttrib && !store_.erased(next)) return next;
    next = store_.next(next);
  }
  return kNoRecord;
}

RecordIndex Structure::insertOf(RecordIndex attribute) const {
  const RecordKind kind = store_.kind(attribute);
  if (kind != RecordKind::kAttrib && kind != RecordKind::kSeqEnd) return kNoRecord;
  if (attribute == lastAttribute_) return lastInsert_;
  RecordIndex insert = store_.previous(attribute);
  while (insert != kNoRecord && insert != lastAttribute_ && continuesAttributes(insert)) {
    insert = store_.previous(insert);
  }
  if (insert != kNoRecord && insert == lastAttribute_) {
    insert = lastInsert_;
  } else {
    const bool owns = insert != kNoRecord && store_.kind(insert) == RecordKind::kInsert &&
                      store_.attributesFollow(insert);
    if (!owns) insert = kNoRecord;
  }
  lastAttribute_ = attribute;
  lastInsert_ = insert;
  return insert;
}

}  // namespace kovra::dxf
