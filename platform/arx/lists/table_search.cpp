// Records of symbol tables as lists.
#include <array>
#include <map>
#include <optional>

#include "platform/arx/base/symbol_names.h"
#include "platform/arx/database/database.h"
#include "platform/arx/lists/entity_lists.h"
#include "platform/arx/lists/list_groups.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;

namespace {

struct TableName {
  const wchar_t* name;
  dxf::TableKind kind;
};

constexpr std::array<TableName, 9> kTables = {{
    {L"LAYER", dxf::TableKind::kLayer},
    {L"STYLE", dxf::TableKind::kStyle},
    {L"BLOCK", dxf::TableKind::kBlockRecord},
    {L"LTYPE", dxf::TableKind::kLtype},
    {L"UCS", dxf::TableKind::kUcs},
    {L"VIEW", dxf::TableKind::kView},
    {L"VPORT", dxf::TableKind::kVport},
    {L"DIMSTYLE", dxf::TableKind::kDimStyle},
    {L"APPID", dxf::TableKind::kAppId},
}};

std::optional<dxf::TableKind> tableOf(const ACHAR* name) {
  if (name == nullptr) return std::nullopt;
  for (const TableName& table : kTables)
    if (dxf::equalNames(table.name, name)) return table.kind;
  return std::nullopt;
}

/// Where acdbTblNext stands in a table: the record (for blocks the block's number) that it gives
/// next.
struct Cursor {
  std::uint32_t database = 0;
  std::uint32_t next = dxf::kNoRecord;
};

Cursor& cursorOf(dxf::TableKind table) {
  static std::map<dxf::TableKind, Cursor> cursors;
  return cursors[table];
}

/// A block that tables list: neither a space nor erased.
bool isListedBlock(const AcDbDatabase& database, dxf::BlockNumber number) {
  const dxf::Block& block = database.structure().block(number);
  return !block.space && block.begin != dxf::kNoRecord && !database.store().erased(block.begin);
}

dxf::BlockNumber listedBlockFrom(const AcDbDatabase& database, dxf::BlockNumber number) {
  while (number < database.structure().blockCount() && !isListedBlock(database, number)) ++number;
  return number < database.structure().blockCount() ? number : dxf::kNoBlock;
}

bool isShown(int code) {
  return code != 5 && code != 105 && code != 330 && code != 100;
}

void appendGroups(const AcDbDatabase& database, dxf::RecordIndex record,
                  kovra::arx::ListBuilder& list) {
  dxf::RecordDraft draft;
  database.store().load(record, draft);
  for (std::size_t i = 0; i < draft.size(); ++i)
    if (draft.part(i) == dxf::GroupPart::kData && isShown(draft.code(i)))
      list.appendGroup(database, draft, i);
}

/// Name, flags and base point of a block, and its first entity as -2.
resbuf* blockList(const AcDbDatabase& database, dxf::BlockNumber number) {
  kovra::arx::ListBuilder list;
  dxf::RecordDraft draft;
  database.store().load(database.structure().block(number).begin, draft);
  list.appendGroup(database, draft, 0);
  for (const int code : {2, 70, 10})
    if (const std::size_t group = draft.find(code); group != dxf::kNoGroup)
      list.appendGroup(database, draft, group);
  const dxf::RecordIndex first = database.structure().firstEntity(number);
  if (first != dxf::kNoRecord) list.appendName(-2, database.idOf(first));
  return list.take();
}

resbuf* entryList(const AcDbDatabase& database, dxf::RecordIndex entry) {
  kovra::arx::ListBuilder list;
  appendGroups(database, entry, list);
  return list.take();
}

resbuf* searchBlock(const AcDbDatabase& database, const ACHAR* name, bool setNext) {
  const dxf::BlockNumber number = database.structure().findBlock(name);
  if (number == dxf::kNoBlock || database.structure().block(number).begin == dxf::kNoRecord)
    return nullptr;
  if (setNext)
    cursorOf(dxf::TableKind::kBlockRecord) = {database.serial(),
                                              listedBlockFrom(database, number + 1)};
  return blockList(database, number);
}

AcDbDatabase* workingDrawing() {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  return database != nullptr && database->hasDrawing() ? database : nullptr;
}

}  // namespace

resbuf* acdbTblSearch(const ACHAR* tableName, const ACHAR* name, int setNext) {
  const AcDbDatabase* database = workingDrawing();
  const std::optional<dxf::TableKind> table = tableOf(tableName);
  if (database == nullptr || !table || name == nullptr) return nullptr;
  if (*table == dxf::TableKind::kBlockRecord) return searchBlock(*database, name, setNext != 0);
  const dxf::RecordIndex entry = database->structure().findEntry(*table, name);
  if (entry == dxf::kNoRecord) return nullptr;
  if (setNext != 0) cursorOf(*table) = {database->serial(), database->structure().nextEntry(entry)};
  return entryList(*database, entry);
}

int acdbSNValid(const ACHAR* name, int pipeTest) {
  std::wstring text = name != nullptr ? name : L"";
  if (pipeTest != 0) std::erase(text, L'|');
  return kovra::arx::isSymbolName(text) ? RTNORM : RTERROR;
}

resbuf* acdbTblNext(const ACHAR* tableName, int rewind) {
  const AcDbDatabase* database = workingDrawing();
  const std::optional<dxf::TableKind> table = tableOf(tableName);
  if (database == nullptr || !table) return nullptr;
  const bool isBlock = *table == dxf::TableKind::kBlockRecord;
  Cursor& cursor = cursorOf(*table);
  if (rewind != 0 || cursor.database != database->serial())
    cursor = {database->serial(),
              isBlock ? listedBlockFrom(*database, 0) : database->structure().firstEntry(*table)};
  if (cursor.next == dxf::kNoRecord) return nullptr;
  const std::uint32_t present = cursor.next;
  cursor.next =
      isBlock ? listedBlockFrom(*database, present + 1) : database->structure().nextEntry(present);
  return isBlock ? blockList(*database, present) : entryList(*database, present);
}
