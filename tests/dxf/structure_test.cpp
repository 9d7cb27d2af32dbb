#include "platform/dxf/structure.h"

#include <gtest/gtest.h>

#include "tests/dxf/drawings.h"

namespace kovra::dxf::test {
namespace {

/// The entities of a block as type names with their handles.
std::string entities(const Structure& structure, const RecordStore& store, BlockNumber number) {
  std::string list;
  RecordIndex entity = structure.firstEntity(number);
  for (; entity != kNoRecord; entity = structure.nextEntity(number, entity)) {
    if (!list.empty()) list += ' ';
    list += std::string(store.typeName(entity)) + ":" + formatHandle(store.handle(entity));
    EXPECT_EQ(structure.blockOf(entity), number) << list;
  }
  return list;
}

std::string attributes(const Structure& structure, const RecordStore& store, RecordIndex insert) {
  std::string list;
  RecordIndex attribute = structure.firstAttribute(insert);
  for (; attribute != kNoRecord; attribute = structure.nextAttribute(attribute)) {
    if (!list.empty()) list += ' ';
    list += formatHandle(store.handle(attribute));
    EXPECT_EQ(structure.insertOf(attribute), insert);
  }
  return list;
}

RecordIndex addText(RecordStore& store, Structure& structure, BlockNumber block) {
  RecordDraft draft;
  draft.start(store.dialect(), "TEXT", store.newHandle(), structure.blockHandle(block));
  draft.appendMarker("AcDbEntity");
  draft.appendText(8, "0");
  draft.appendMarker("AcDbText");
  draft.appendReal(40, 2.5);
  draft.appendText(1, "new");
  return store.insertBefore(structure.entityAnchor(block), draft);
}

TEST(Structure, ReadsTheSampleInEveryForm) {
  for (const Form& form : allForms()) {
    SCOPED_TRACE(form.name);
    const auto store = open(sampleDrawing(form));
    const Structure structure(*store);
    EXPECT_EQ(entities(structure, *store, kModelSpace), "INSERT:50 TEXT:54 POLYLINE:55 ATTRIB:59");
    EXPECT_EQ(entities(structure, *store, structure.paperSpace()), "NEWKIND:5A");
    EXPECT_EQ(entities(structure, *store, structure.findBlock(L"MOTOR")), "LINE:43 ATTDEF:44");
    EXPECT_EQ(attributes(structure, *store, at(*store, 0x50)), "51 52");
    EXPECT_EQ(attributes(structure, *store, at(*store, 0x54)), "");
    EXPECT_EQ(structure.insertOf(at(*store, 0x59)), kNoRecord) << "a standalone attribute";
    EXPECT_EQ(structure.pastSubordinates(at(*store, 0x55)), at(*store, 0x58) + 1);
    EXPECT_EQ(structure.pastSubordinates(at(*store, 0x54)), at(*store, 0x54) + 1);
    EXPECT_EQ(structure.blockOf(at(*store, 0x52)), kModelSpace);
    EXPECT_EQ(structure.findEntry(TableKind::kLayer, L"WIRES"), at(*store, 0x11));
    EXPECT_EQ(structure.entryName(at(*store, 0x11)), L"Wires");
    EXPECT_EQ(structure.findEntry(TableKind::kLayer, L"none"), kNoRecord);
    EXPECT_EQ(structure.findEntry(TableKind::kDimStyle, L"standard"), at(*store, 0x13));
    EXPECT_EQ(structure.spaceName(structure.paperSpace()),
              form.release == kR12 ? L"Layout1" : L"Sheet A");
  }
}

TEST(Structure, FindsEntitiesOfOddFiles) {
  const std::pair<const char*, std::string> cases[] = {
      {"0 SECTION\n2 ENTITIES\n0 LINE\n5 1\n0 TEXT\n5 2\n67 1\n0 ENDSEC\n0 EOF", "LINE:1"},
      // Attributes without SEQEND; an insert that says it has none.
      {"0 SECTION\n2 ENTITIES\n0 INSERT\n5 1\n66 1\n0 ATTRIB\n5 2\n0 LINE\n5 3\n0 INSERT\n5 4\n66 "
       "0\n"
       "0 ATTRIB\n5 5\n0 ENDSEC\n0 EOF",
       "INSERT:1 LINE:3 INSERT:4 ATTRIB:5"},
      // The text of a multi-line attribute as a record of its own.
      {"0 SECTION\n2 ENTITIES\n0 INSERT\n5 1\n66 1\n0 ATTRIB\n5 2\n0 MTEXT\n5 3\n0 SEQEND\n5 4\n"
       "0 MTEXT\n5 5\n0 ENDSEC\n0 EOF",
       "INSERT:1 MTEXT:5"},
      {"0 SECTION\n2 ENTITIES\n0 LINE\n5 1\n0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 ARC\n5 2\n0 ENDSEC",
       "LINE:1 ARC:2"},
      {"0 SECTION\n2 ENTITIES\n0 LINE\n5 1\n0 SECTION\n2 BLOCKS\n0 BLOCK\n2 *MODEL_SPACE\n0 ARC\n5 "
       "2\n"
       "0 ENDBLK\n0 ENDSEC",
       "ARC:2 LINE:1"},
      {"0 SECTION\n2 HEADER\n0 ENDSEC", ""},
  };
  for (const auto& [groups, list] : cases) {
    const auto store = open(write(groups));
    EXPECT_EQ(entities(Structure(*store), *store, kModelSpace), list) << groups;
  }
}

TEST(Structure, DuplicateHandlesFindTheFirstLivingRecord) {
  const auto store = open(write("0 SECTION\n2 ENTITIES\n0 LINE\n5 7\n0 ARC\n5 7\n0 ENDSEC\n0 EOF"));
  const RecordIndex line = firstOf(*store, "LINE");
  EXPECT_EQ(store->find(7), line);
  store->setErased(line, true);
  EXPECT_EQ(store->find(7), firstOf(*store, "ARC"));
  EXPECT_EQ(store->find(0), kNoRecord);
}

TEST(Structure, HeaderVariablesAreSetInPlaceOrAdded) {
  for (const Form& form : allForms()) {
    SCOPED_TRACE(form.name);
    const std::string before = sampleDrawing(form);
    const auto store = open(before);
    Structure structure(*store);
    EXPECT_EQ(structure.realVariable("$TEXTSIZE"), 2.5);
    EXPECT_EQ(structure.pointVariable("$EXTMIN")->y, -0.5);
    EXPECT_EQ(structure.textVariable("$CLAYER"), L"0");
    EXPECT_FALSE(structure.hasVariable("$DIMSCALE"));
    const RecordState old = store->state(structure.headerRecord());
    structure.setRealVariable("$TEXTSIZE", 40, 2.5);
    EXPECT_FALSE(store->changed());
    structure.setTextVariable("$CLAYER", 8, L"Wires");
    structure.setRealVariable("$DIMSCALE", 40, 2);
    structure.setPointVariable("$EXTMIN", 10, {1, 2, 3});
    const auto again = open(store->toBytes());
    const Structure read(*again);
    EXPECT_EQ(read.textVariable("$CLAYER"), L"Wires");
    EXPECT_EQ(read.realVariable("$DIMSCALE"), 2.0);
    EXPECT_EQ(read.pointVariable("$EXTMIN")->z, 3);
    store->restore(structure.headerRecord(), old);
    EXPECT_EQ(structure.textVariable("$CLAYER"), L"0");
    EXPECT_EQ(store->toBytes(), before);
  }
}

TEST(Structure, NewRecordsFollowTheDialect) {
  for (const Form& form : allForms()) {
    SCOPED_TRACE(form.name);
    const std::string before = sampleDrawing(form);
    const auto store = open(before);
    Structure structure(*store);
    const RecordIndex text = addText(*store, structure, kModelSpace);
    const RecordIndex layer = structure.addLayer(L"\u00c4nderung", 3);
    const RecordIndex inBlock = addText(*store, structure, structure.findBlock(L"Motor"));
    EXPECT_EQ(store->handle(text), 0xF0U) << "the seed";
    EXPECT_EQ(structure.findEntry(TableKind::kLayer, L"\u00e4NDERUNG"), layer);
    const auto again = open(store->toBytes());
    const Structure read(*again);
    EXPECT_EQ(entities(read, *again, kModelSpace),
              "INSERT:50 TEXT:54 POLYLINE:55 ATTRIB:59 TEXT:F0");
    EXPECT_EQ(again->section(at(*again, 0xF0)), SectionKind::kEntities);
    EXPECT_NE(read.findEntry(TableKind::kLayer, L"\u00c4NDERUNG"), kNoRecord);
    RecordDraft draft;
    again->load(at(*again, 0xF0), draft);
    EXPECT_EQ(draft.hasMarker("AcDbText"), form.release > kR12);
    EXPECT_EQ(draft.find(330) != kNoGroup, form.release > kR12);
    RecordDraft header;
    again->load(again->headerRecord(), header);
    EXPECT_EQ(header.handle(header.find(5)), store->handle(inBlock) + 1) << "the new seed";
    for (const RecordIndex record : {text, layer, inBlock}) store->setErased(record, true);
    EXPECT_EQ(structure.findEntry(TableKind::kLayer, L"\u00c4nderung"), kNoRecord);
    EXPECT_EQ(store->toBytes(), before);
  }
}

TEST(Structure, MakesSectionsAndTablesThatAreMissing) {
  const auto store = open("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n0\nENDSEC");
  Structure structure(*store);
  structure.addLayer(L"A", 1);
  structure.addStyle(L"S", 0, 0.8, L"txt");
  structure.setRealVariable("$TEXTSIZE", 40, 5);
  addText(*store, structure, kModelSpace);
  const std::string bytes = store->toBytes();
  EXPECT_LT(bytes.find("HEADER"), bytes.find("TABLES")) << "also where the tables came first";
  const auto again = open(bytes);
  const Structure read(*again);
  EXPECT_NE(read.findEntry(TableKind::kLayer, L"a"), kNoRecord);
  EXPECT_NE(read.findEntry(TableKind::kStyle, L"s"), kNoRecord);
  EXPECT_EQ(read.realVariable("$TEXTSIZE"), 5.0);
  EXPECT_EQ(entities(read, *again, kModelSpace), "LINE:0 TEXT:0") << "no handles in this file";
  const auto bare = open("0\nSECTION\n2\nHEADER\n0\nENDSEC\n0\nEOF");
  Structure empty(*bare);
  addText(*bare, empty, kModelSpace);
  EXPECT_EQ(entities(Structure(*open(bare->toBytes())), *open(bare->toBytes()), kModelSpace),
            "TEXT:0");
}

TEST(Structure, InsertionsKeepTheirOrderAndOldOnesFollowEdits) {
  const auto store = open(sampleDrawing({"", kR2000}));
  Structure structure(*store);
  const RecordIndex first = addText(*store, structure, kModelSpace);
  addText(*store, structure, kModelSpace);
  RecordDraft draft;
  store->load(first, draft);
  store->insertBefore(first, draft);
  EXPECT_EQ(entities(structure, *store, kModelSpace),
            "INSERT:50 TEXT:54 POLYLINE:55 ATTRIB:59 TEXT:F0 TEXT:F0 TEXT:F1");
  std::vector<RecordIndex> forward;
  for (RecordIndex at = store->first(); at != kNoRecord; at = store->next(at))
    forward.push_back(at);
  std::vector<RecordIndex> backward;
  RecordIndex back = store->previous(kNoRecord);
  for (; back != kNoRecord; back = store->previous(back)) backward.insert(backward.begin(), back);
  EXPECT_EQ(forward, backward);
  EXPECT_EQ(forward.size(), store->count());
  // A renamed layer is found by its new name only, and by the old one when it is restored.
  const RecordIndex layer = at(*store, 0x11);
  const RecordState old = store->state(layer);
  store->load(layer, draft);
  draft.setText(draft.find(2), "Cables");
  store->replace(layer, draft);
  EXPECT_EQ(structure.findEntry(TableKind::kLayer, L"wires"), kNoRecord);
  EXPECT_EQ(structure.findEntry(TableKind::kLayer, L"CABLES"), layer);
  store->restore(layer, old);
  EXPECT_EQ(structure.findEntry(TableKind::kLayer, L"wires"), layer);
  EXPECT_EQ(structure.findEntry(TableKind::kLayer, L"CABLES"), kNoRecord);
}

TEST(Structure, AWrongSeedMakesNoDuplicateHandles) {
  const auto store =
      open(write("0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n9 $HANDSEED\n5 5\n0 ENDSEC\n"
                 "0 SECTION\n2 ENTITIES\n0 LINE\n5 5\n0 LINE\n5 1A\n0 ENDSEC\n0 EOF"));
  EXPECT_EQ(store->newHandle(), 0x1BU);
  EXPECT_EQ(store->newHandle(), 0x1CU);
  const auto absurd =
      open(write("0 SECTION\n2 ENTITIES\n0 LINE\n5 1\n0 LINE\n5 FFFFFFFFFFFFFFFF\n"
                 "0 LINE\n5 2\n0 ENDSEC\n0 EOF"));
  EXPECT_EQ(absurd->newHandle(), 3U);
}

TEST(Structure, HandlesAndOwnersMayHave64Bits) {
  for (const std::uint64_t wide : {0xfffffffeULL, 0xffffffffULL, 0x100000000ULL, ~0ULL}) {
    const std::string digits = formatHandle(wide);
    const auto store = open(write("0 SECTION\n2 ENTITIES\n0 LINE\n5 1\n0 LINE\n5 " + digits +
                                  "\n330 " + digits + "\n0 ENDSEC\n0 EOF"));
    const RecordIndex line = store->find(wide);
    ASSERT_NE(line, kNoRecord) << digits;
    EXPECT_EQ(store->handle(line), wide);
    EXPECT_EQ(store->owner(line), wide);
    RecordDraft draft;
    store->load(line, draft);
    draft.setHandle(draft.find(330), 7);
    store->replace(line, draft);
    EXPECT_EQ(store->owner(line), 7U) << digits;
    EXPECT_EQ(store->find(wide), line);
  }
}

TEST(Structure, TheNewDrawingHasWhatCommandsNeed) {
  const auto store = RecordStore::newDrawing();
  Structure structure(*store);
  EXPECT_TRUE(store->dialect().utf8());
  EXPECT_FALSE(store->changed());
  EXPECT_NE(structure.findEntry(TableKind::kLayer, L"0"), kNoRecord);
  EXPECT_NE(structure.findEntry(TableKind::kStyle, L"standard"), kNoRecord);
  EXPECT_EQ(structure.spaceName(structure.paperSpace()), L"Layout1");
  EXPECT_EQ(structure.realVariable("$DIMSCALE"), 1.0);
  const std::string before = store->toBytes();
  addText(*store, structure, kModelSpace);
  EXPECT_TRUE(store->changed());
  const auto again = open(store->toBytes());
  for (RecordIndex record = 0; record < again->count(); ++record) {
    const std::uint64_t handle = again->handle(record);
    EXPECT_TRUE(handle == 0 || again->find(handle) == record) << again->typeName(record);
    const RecordIndex owner = again->find(again->owner(record));
    EXPECT_TRUE(again->owner(record) == 0 || owner != kNoRecord) << again->typeName(record);
  }
}

}  // namespace
}  // namespace kovra::dxf::test
