#include <algorithm>

#include "platform/dxf/structure.h"
#include "platform/dxf/table_kinds.h"

// Symbol tables: TABLE, its entries, ENDTAB.
namespace kovra::dxf {

namespace {

bool isStructural(RecordKind kind) {
  return kind >= RecordKind::kSection && kind <= RecordKind::kEof;
}

}  // namespace

void Structure::findTables() {
  for (const RecordIndex record : store_.structural()) {
    if (store_.kind(record) == RecordKind::kTable) noteTable(record);
  }
  for (Table& table : tables_) table.renamed = false;
}

/// Takes in a table with its entries.
void Structure::noteTable(RecordIndex record) {
  if (store_.erased(record)) {
    for (Table& table : tables_) {
      if (table.table == record) table.table = table.end = kNoRecord;
    }
    return;
  }
  store_.load(record, scratch_);
  const std::size_t name = scratch_.find(2);
  if (name == kNoGroup) return;
  const std::string_view text = trimmed(scratch_.text(name));
  std::size_t number = 0;
  while (number < kTableKinds && kTableTraits[number].name != text) ++number;
  if (number == kTableKinds) return;
  const auto kind = static_cast<TableKind>(number);
  RecordIndex entry = store_.next(record);
  for (; entry != kNoRecord && !isStructural(store_.kind(entry)); entry = store_.next(entry)) {
    if (store_.kind(entry) == kTableTraits[number].entry) indexEntry(kind, entry);
  }
  // A second table of the same kind is only searched.
  if (tables_[number].table == kNoRecord || tables_[number].table == record) {
    tables_[number].table = record;
    tables_[number].end = entry;
  }
}

void Structure::indexEntry(TableKind kind, RecordIndex entry) {
  Table& table = tables_[static_cast<std::size_t>(kind)];
  std::vector<RecordIndex>& entries = table.byName[foldCase(entryName(entry))];
  // Entries come in rising order but for those that are renamed later.
  const bool newest = entries.empty() || entries.back() < entry;
  if (newest || std::find(entries.begin(), entries.end(), entry) == entries.end()) {
    entries.push_back(entry);
  }
  table.renamed = true;
  table.found.clear();
}

RecordIndex Structure::tableRecord(TableKind table) const {
  return tables_[static_cast<std::size_t>(table)].table;
}

const Structure::TableEntry* Structure::lookUp(TableKind kind, std::wstring_view name) const {
  const Table& table = tables_[static_cast<std::size_t>(kind)];
  if (const auto known = table.found.find(name); known != table.found.end()) return &known->second;
  const auto found = table.byName.find(foldCase(name));
  if (found == table.byName.end()) return nullptr;
  for (const RecordIndex entry : found->second) {
    if (store_.erased(entry)) continue;
    std::wstring spelling = entryName(entry);
    if (table.renamed && !equalNames(spelling, name)) continue;
    return &table.found.insert_or_assign(std::wstring(name), TableEntry{entry, std::move(spelling)})
                .first->second;
  }
  return nullptr;
}

RecordIndex Structure::findEntry(TableKind kind, std::wstring_view name) const {
  const TableEntry* entry = lookUp(kind, name);
  return entry == nullptr ? kNoRecord : entry->record;
}

RecordIndex Structure::firstEntry(TableKind table) const {
  const RecordIndex record = tableRecord(table);
  if (record == kNoRecord) return kNoRecord;
  RecordIndex entry = store_.next(record);
  while (entry != kNoRecord && !isStructural(store_.kind(entry))) {
    if (store_.kind(entry) == traits(table).entry && !store_.erased(entry)) return entry;
    entry = store_.next(entry);
  }
  return kNoRecord;
}

RecordIndex Structure::nextEntry(RecordIndex entry) const {
  const RecordKind kind = store_.kind(entry);
  RecordIndex next = store_.next(entry);
  while (next != kNoRecord && !isStructural(store_.kind(next))) {
    if (store_.kind(next) == kind && !store_.erased(next)) return next;
    next = store_.next(next);
  }
  return kNoRecord;
}

std::wstring Structure::entryName(RecordIndex entry) const {
  store_.load(entry, scratch_);
  const std::size_t name = scratch_.find(2);
  return name == kNoGroup ? std::wstring() : store_.codec().decode(scratch_.text(name));
}

void Structure::ensureTable(TableKind kind) {
  Table& table = tables_[static_cast<std::size_t>(kind)];
  if (table.table != kNoRecord && table.end != kNoRecord) return;
  RecordIndex section = kNoRecord;
  for (RecordIndex record = 0; record < store_.count() && section == kNoRecord; ++record) {
    const bool tables = store_.section(record) == SectionKind::kTables;
    if (tables && store_.kind(record) == RecordKind::kSection && !store_.erased(record)) {
      section = record;
    }
  }
  if (section == kNoRecord) section = addSection("TABLES", SectionKind::kTables);
  const RecordIndex end = endOfSection(section);
  const Dialect& dialect = store_.dialect();
  RecordDraft draft;
  draft.start(dialect, "TABLE", 0, 0);
  draft.appendText(2, traits(kind).name);
  if (dialect.handles && dialect.subclassMarkers) draft.appendHandle(5, store_.newHandle());
  if (dialect.owners) draft.appendHandle(330, 0);
  draft.appendMarker("AcDbSymbolTable");
  draft.appendInteger(70, 0);
  if (kind == TableKind::kDimStyle) draft.appendMarker("AcDbDimStyleTable");
  const RecordIndex record = store_.insertBefore(end, draft);
  draft.start(dialect, "ENDTAB", 0, 0);
  store_.insertBefore(end, draft);
  noteTable(record);
}

void Structure::startEntry(TableKind kind, RecordDraft& draft) {
  ensureTable(kind);
  const Dialect& dialect = store_.dialect();
  // Table entries of R12 have no handles, also in drawings whose entities have them.
  const std::uint64_t handle = dialect.subclassMarkers ? store_.newHandle() : 0;
  draft.start(dialect, traits(kind).name, handle, store_.handle(tableRecord(kind)));
}

void Structure::startEntry(TableKind kind, std::wstring_view name, int flags, RecordDraft& draft) {
  startEntry(kind, draft);
  draft.appendMarker("AcDbSymbolTableRecord");
  draft.appendMarker(traits(kind).marker);
  draft.appendText(2, name, store_.codec());
  draft.appendInteger(70, flags);
}

RecordIndex Structure::addEntry(TableKind kind, RecordDraft& draft) {
  if (kind == TableKind::kLayer) copyPlotSettings(draft);
  return store_.insertBefore(tables_[static_cast<std::size_t>(kind)].end, draft);
}

/// Line weight and plot style of a new layer are those of layer 0, where the release has them.
void Structure::copyPlotSettings(RecordDraft& layer) const {
  const RecordIndex zero = findEntry(TableKind::kLayer, L"0");
  if (zero == kNoRecord) return;
  RecordDraft model;
  store_.load(zero, model);
  if (model.find(370) != kNoGroup) layer.appendInteger(370, -3);
  if (const std::size_t style = model.find(390); style != kNoGroup) {
    layer.appendHandle(390, model.handle(style));
  }
}

RecordIndex Structure::addLayer(std::wstring_view name, int color) {
  RecordDraft draft;
  startEntry(TableKind::kLayer, name, 0, draft);
  draft.appendInteger(62, color);
  draft.appendText(6, store_.dialect().release > kR12 ? "Continuous" : "CONTINUOUS");
  return addEntry(TableKind::kLayer, draft);
}

RecordIndex Structure::addStyle(std::wstring_view name, double height, double widthFactor,
                                std::wstring_view font) {
  constexpr double kUsualLastHeight = 2.5;
  RecordDraft draft;
  startEntry(TableKind::kStyle, name, 0, draft);
  draft.appendReal(40, height);
  draft.appendReal(41, widthFactor);
  draft.appendReal(50, 0);
  draft.appendInteger(71, 0);
  draft.appendReal(42, height > 0 ? height : kUsualLastHeight);
  draft.appendText(3, font, store_.codec());
  draft.appendText(4, std::string_view());
  return addEntry(TableKind::kStyle, draft);
}

}  // namespace kovra::dxf
