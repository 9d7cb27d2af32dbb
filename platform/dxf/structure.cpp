#include "platform/dxf/structure.h"

#include <algorithm>

#include "platform/dxf/table_kinds.h"

namespace kovra::dxf {

Structure::Structure(RecordStore& store) : store_(store) {
  findSections();
  findTables();
  store_.addListener(this);
}

Structure::~Structure() {
  store_.removeListener(this);
}

void Structure::findSections() {
  header_ = store_.headerRecord();
  entitySections_.clear();
  const auto note = [this](RecordIndex record) {
    if (store_.kind(record) != RecordKind::kSection || store_.erased(record)) return;
    if (store_.section(record) != SectionKind::kEntities) return;
    entitySections_.push_back({record, endOfSection(record)});
  };
  for (const RecordIndex record : store_.structural()) note(record);
  for (RecordIndex record = store_.originalCount(); record < store_.count(); ++record) note(record);
}

/// The ENDSEC of a section, or what stands in its place.
RecordIndex Structure::endOfSection(RecordIndex section) const {
  const std::vector<RecordIndex>& marks = store_.structural();
  if (section < store_.originalCount()) {
    auto mark = std::upper_bound(marks.begin(), marks.end(), section);
    for (; mark != marks.end(); ++mark) {
      const RecordKind kind = store_.kind(*mark);
      if (kind == RecordKind::kEndSec || kind == RecordKind::kSection) return *mark;
    }
    return kNoRecord;
  }
  RecordIndex record = store_.next(section);
  while (record != kNoRecord && store_.kind(record) != RecordKind::kEndSec) {
    record = store_.next(record);
  }
  return record;
}

/// Makes an empty section in front of the first section of kind `before` or one that comes later in
/// the usual order. Returns its SECTION record.
RecordIndex Structure::addSection(std::string_view name, SectionKind before) {
  // In file order: sections that were added are listed behind those of the file.
  RecordIndex anchor = store_.first();
  while (anchor != kNoRecord &&
         (store_.kind(anchor) != RecordKind::kSection || store_.section(anchor) < before))
    anchor = store_.next(anchor);
  const RecordIndex last = store_.previous(kNoRecord);
  const bool hasEof = last != kNoRecord && store_.kind(last) == RecordKind::kEof;
  if (anchor == kNoRecord && hasEof) anchor = last;
  RecordDraft draft;
  draft.start(store_.dialect(), "SECTION", 0, 0);
  draft.appendText(2, name);
  const RecordIndex section = store_.insertBefore(anchor, draft);
  draft.start(store_.dialect(), "ENDSEC", 0, 0);
  store_.insertBefore(anchor, draft);
  return section;
}

void Structure::afterChange(RecordIndex record) {
  switch (store_.kind(record)) {
    case RecordKind::kSection:
    case RecordKind::kEndSec:
      headerLoaded_ = false;
      if (record != header_ || store_.erased(record)) findSections();
      break;
    case RecordKind::kTable:
      noteTable(record);
      break;
    case RecordKind::kBlock:
    case RecordKind::kEndBlk:
      blocksKnown_ = false;
      break;
    case RecordKind::kLayout:
      layoutsKnown_ = false;
      break;
    case RecordKind::kInsert:
    case RecordKind::kAttrib:
      lastAttribute_ = kNoRecord;
      break;
    default:
      break;
  }
  const std::size_t table = tableNumber(store_.kind(record));
  if (table < kTableKinds) indexEntry(static_cast<TableKind>(table), record);
  if (store_.kind(record) == RecordKind::kBlockRecord) blocksKnown_ = false;
}

}  // namespace kovra::dxf
