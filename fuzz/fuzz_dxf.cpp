#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dxf/record_scan.h"
#include "platform/dxf/structure.h"

// Any bytes: they are refused with an error, or they come back as they are, also after every record
// was changed and changed back, and after insertions that were undone.

namespace {

using namespace kovra::dxf;

void demand(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

/// Sets a group to another value.
void disturb(RecordDraft& draft, std::size_t group) {
  switch (draft.type(group)) {
    case ValueType::kReal:
      draft.setReal(group, draft.real(group) + 1.5);
      break;
    case ValueType::kText:
      draft.setText(group, std::string(draft.text(group)) + "x");
      break;
    case ValueType::kHandle:
      draft.setHandle(group, draft.handle(group) ^ 1U);
      break;
    case ValueType::kBinary:
      draft.setBinary(group, "ab");
      break;
    default:
      draft.setInteger(group, draft.integer(group) == 0 ? 1 : 0);
      break;
  }
}

/// The drawing with one record as it is now must be readable, and the record must be the draft's.
void changeAndRestore(RecordStore& store, RecordIndex record, const std::string& original) {
  RecordDraft draft;
  store.load(record, draft);
  if (draft.size() < 2) return;
  const RecordState before = store.state(record);
  const std::size_t group = 1 + record % (draft.size() - 1);
  const std::string old = draft.asciiText(group);
  disturb(draft, group);
  store.replace(record, draft);
  std::string scratch;
  RecordDraft again;
  again.decode(store.bytes(record, scratch), store.dialect());
  demand(again.size() == draft.size(), "a changed record keeps its groups");
  store.load(record, draft);
  draft.setText(group, old);
  store.replace(record, draft);
  const bool oneLine = old.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos;
  if (oneLine && !store.dialect().binary) {
    demand(store.bytes(record, scratch) == original, "a value set back has its old bytes");
    demand(!store.changed(), "a value set back is no change");
  }
  store.restore(record, before);
  store.load(record, draft);
  draft.insertReal(draft.size(), 40, 1);
  draft.insertText(1, 1, "inserted");
  draft.erase(group + 1);
  store.replace(record, draft);
  store.restore(record, before);
  demand(store.bytes(record, scratch) == original, "a restored record has its old bytes");
}

void walkStructure(Structure& structure, RecordStore& store) {
  std::size_t entities = 0;
  for (BlockNumber number = 0; number < structure.blockCount(); ++number) {
    structure.spaceName(number);
    RecordIndex entity = structure.firstEntity(number);
    for (; entity != kNoRecord; entity = structure.nextEntity(number, entity)) {
      structure.blockOf(entity);
      structure.pastSubordinates(entity);
      RecordIndex attribute = structure.firstAttribute(entity);
      for (; attribute != kNoRecord; attribute = structure.nextAttribute(attribute)) {
        demand(structure.insertOf(attribute) == entity, "an attribute knows its insert");
      }
      demand(++entities <= std::size_t{2} * store.count(), "entities are listed once");
    }
  }
  for (std::size_t table = 0; table < kTableKinds; ++table) {
    const auto kind = static_cast<TableKind>(table);
    RecordIndex entry = structure.firstEntry(kind);
    for (; entry != kNoRecord; entry = structure.nextEntry(entry)) {
      structure.findEntry(kind, structure.entryName(entry));
    }
  }
  structure.pointVariable("$EXTMIN");
  structure.textVariable("$CLAYER");
}

void insertAndUndo(Structure& structure, RecordStore& store) {
  const RecordIndex first = store.count();
  structure.addLayer(L"\u65b0 layer", 3);
  RecordDraft draft;
  draft.start(store.dialect(), "TEXT", store.newHandle(), structure.blockHandle(kModelSpace));
  draft.appendText(8, "0");
  store.insertBefore(structure.entityAnchor(kModelSpace), draft);
  const RecordState header =
      structure.headerRecord() == kNoRecord ? RecordState{} : store.state(structure.headerRecord());
  structure.setRealVariable("$TEXTSIZE", 40, 7.25);
  const auto saved = RecordStore::fromBytes(store.toBytes());
  demand(saved.ok(), saved.ok() ? "" : ("what was written: " + saved.error().message).c_str());
  if (structure.headerRecord() < first) store.restore(structure.headerRecord(), header);
  for (RecordIndex record = first; record < store.count(); ++record) {
    store.setErased(record, true);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  auto opened = RecordStore::fromBytes(bytes);
  const std::size_t piece = 1 + size % 97;
  const auto inPieces =
      scanRecords([=](std::size_t seen) { return bytes.substr(0, seen + piece); }, "drawing");
  demand(inPieces.ok() == opened.ok(), "a drawing that comes in pieces is read alike");
  if (!opened) {
    demand(!opened.error().message.empty(), "an error has a message");
    demand(opened.error().message.find('\n') == std::string::npos, "a message is one line");
    return 0;
  }
  RecordStore& store = *opened.value();
  demand(inPieces.value().records.size() == store.originalCount(), "pieces have all records");
  demand(store.toBytes() == bytes, "all bytes come back");
  Structure structure(store);
  walkStructure(structure, store);
  constexpr RecordIndex kMostRecords = 200;
  std::string scratch;
  for (RecordIndex record = 0; record < store.originalCount() && record < kMostRecords; ++record) {
    changeAndRestore(store, record, std::string(store.bytes(record, scratch)));
    RecordDraft draft;
    store.load(record, draft);
    for (std::size_t n = 0; n < draft.size(); ++n) store.codec().decode(draft.text(n));
  }
  insertAndUndo(structure, store);
  demand(!store.changed(), "all changes are undone");
  demand(store.toBytes() == bytes, "all bytes come back after changes and undo");
  return 0;
}
