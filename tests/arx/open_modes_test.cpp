// Opening, closing, erasing, locked layers, symbol tables, block references.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/arx/base/ads.h"
#include "platform/arx/database/block_table_record.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/entities/block_reference.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/lists/entity_lists.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

std::string attributeAndTexts(int release) {
  return TestDrawing{release, textEntity(TextKind::kAttribute, release, 0x101, {}) +
                                  textEntity(TextKind::kText, release, 0x110, {}) +
                                  textEntity(TextKind::kText, release, 0x111, {{8, "FRAME"}})}
      .bytes();
}

template <class T>
T* opened(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead) {
  T* object = nullptr;
  EXPECT_EQ(acdbOpenObject(object, id, mode), Acad::eOk);
  return object;
}

TEST(OpenModes, ManyReadersOrOneWriter) {
  OpenDrawing drawing(attributeAndTexts(1015));
  const AcDbObjectId id = drawing.find(0x110);
  auto* first = opened<AcDbText>(id);
  auto* second = opened<AcDbText>(id);
  AcDbText* third = nullptr;
  EXPECT_EQ(acdbOpenObject(third, id, AcDb::kForWrite), Acad::eWasOpenForRead);
  EXPECT_EQ(third, nullptr);
  EXPECT_EQ(first->upgradeOpen(), Acad::eWasOpenForRead);
  EXPECT_EQ(first->setHeight(3), Acad::eNotOpenForWrite);
  EXPECT_EQ(second->close(), Acad::eOk);
  EXPECT_EQ(first->upgradeOpen(), Acad::eOk);
  EXPECT_EQ(acdbOpenObject(third, id, AcDb::kForRead), Acad::eWasOpenForWrite);
  EXPECT_EQ(first->upgradeOpen(), Acad::eWasOpenForWrite);
  EXPECT_EQ(first->setHeight(3), Acad::eOk);
  EXPECT_EQ(first->downgradeOpen(), Acad::eOk);
  EXPECT_EQ(first->height(), 3);
  third = opened<AcDbText>(id);
  EXPECT_EQ(third->height(), 3);
  third->close();
  first->close();
}

TEST(OpenModes, CancelDropsChanges) {
  const std::string bytes = attributeAndTexts(1015);
  OpenDrawing drawing(bytes);
  auto* text = opened<AcDbText>(drawing.find(0x110), AcDb::kForWrite);
  text->setHeight(9);
  EXPECT_EQ(text->cancel(), Acad::eOk);
  EXPECT_EQ(drawing.bytes(), bytes);
}

TEST(OpenModes, RefuseOtherClassesAndIds) {
  OpenDrawing drawing(attributeAndTexts(1015));
  AcDbAttribute* attribute = nullptr;
  EXPECT_EQ(acdbOpenObject(attribute, drawing.find(0x110), AcDb::kForRead),
            Acad::eNotThatKindOfClass);
  EXPECT_EQ(acdbOpenObject(attribute, AcDbObjectId(), AcDb::kForRead), Acad::eNullObjectId);
  AcDbObjectId left;
  {
    const AcDbDatabase other;
    left = other.modelSpaceId();
    EXPECT_TRUE(left.isValid());
  }
  EXPECT_FALSE(left.isValid());
  EXPECT_EQ(acdbOpenObject(attribute, left, AcDb::kForRead), Acad::eNullObjectId);
}

TEST(OpenModes, LockedLayersRefuseWriters) {
  const std::string bytes = attributeAndTexts(1015);
  OpenDrawing drawing(bytes);
  const AcDbObjectId id = drawing.find(0x111);
  AcDbText* text = nullptr;
  EXPECT_EQ(acdbOpenObject(text, id, AcDb::kForWrite), Acad::eOnLockedLayer);
  text = opened<AcDbText>(id);
  EXPECT_EQ(text->upgradeOpen(), Acad::eOnLockedLayer);
  text->close();
  ads_name name;
  acdbGetAdsName(name, id);
  EXPECT_EQ(acdbEntDel(name), RTREJ);
  EXPECT_EQ(drawing.bytes(), bytes);

  // Unlocking lets writers in at once, and locking again leaves no trace.
  auto* layer = opened<AcDbLayerTableRecord>(drawing.find(0x111).database()->clayer());
  layer->close();
  AcDbLayerTable* table = nullptr;
  ASSERT_EQ(drawing->getSymbolTable(table, AcDb::kForRead), Acad::eOk);
  ASSERT_EQ(table->getAt(L"frame", layer, AcDb::kForWrite), Acad::eOk);
  layer->setIsLocked(false);
  layer->close();
  EXPECT_EQ(acdbOpenObject(text, id, AcDb::kForWrite), Acad::eOk);
  text->close();
  ASSERT_EQ(table->getAt(L"frame", layer, AcDb::kForWrite), Acad::eOk);
  layer->setIsLocked(true);
  layer->close();
  table->close();
  EXPECT_FALSE(drawing->isModified());
}

class BothReleases : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Releases, BothReleases, testing::Values(1009, 1015));

TEST_P(BothReleases, BlockReferenceWalksItsAttributes) {
  OpenDrawing drawing(attributeAndTexts(GetParam()));
  auto* reference = opened<AcDbBlockReference>(drawing.find(0x100));
  EXPECT_EQ(reference->ownerId(), drawing->modelSpaceId());
  EXPECT_EQ(reference->position(), AcGePoint3d(10, 20, 0));
  const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
  ASSERT_FALSE(attributes->done());
  AcDbAttribute* attribute = nullptr;
  ASSERT_EQ(reference->openAttribute(attribute, attributes->objectId(), AcDb::kForRead), Acad::eOk);
  EXPECT_STREQ(attribute->tagConst(), L"NAME");
  EXPECT_EQ(attribute->ownerId(), reference->objectId());
  attribute->close();
  attributes->step();
  EXPECT_TRUE(attributes->done());

  auto* block = opened<AcDbBlockTableRecord>(reference->blockTableRecord());
  AcDbBlockTableRecordIterator* inside = nullptr;
  ASSERT_EQ(block->newIterator(inside), Acad::eOk);
  AcDbEntity* definition = nullptr;
  ASSERT_EQ(inside->getEntity(definition), Acad::eOk);
  EXPECT_TRUE(definition->isKindOf(AcDbAttributeDefinition::desc()));
  EXPECT_EQ(definition->ownerId(), block->objectId());
  definition->close();
  delete inside;
  block->close();
  reference->close();
}

TEST_P(BothReleases, ErasingAReferenceTakesItsAttributes) {
  const std::string bytes = attributeAndTexts(GetParam());
  OpenDrawing drawing(bytes);
  const AcDbObjectId attribute = drawing.find(0x101);
  auto* reference = opened<AcDbBlockReference>(drawing.find(0x100), AcDb::kForWrite);
  EXPECT_EQ(reference->erase(), Acad::eOk);
  EXPECT_EQ(reference->erase(), Acad::eWasErased);
  EXPECT_TRUE(attribute.isErased());
  EXPECT_EQ(drawing.bytes().find("SEQEND"), std::string::npos);
  EXPECT_EQ(reference->erase(false), Acad::eOk);
  reference->close();
  EXPECT_FALSE(attribute.isErased());
  EXPECT_EQ(drawing.bytes(), bytes);
  AcDbText* text = nullptr;
  ASSERT_EQ(acdbOpenObject(text, drawing.find(0x110), AcDb::kForWrite), Acad::eOk);
  text->erase();
  text->close();
  EXPECT_EQ(acdbOpenObject(text, drawing.find(0x110), AcDb::kForRead), Acad::eWasErased);
  EXPECT_EQ(acdbOpenObject(text, drawing.find(0x110), AcDb::kForRead, true), Acad::eOk);
  text->close();
}

TEST(Erasing, TakesAllPartsAndOwnedObjects) {
  const auto record = [](const char* type, const char* handle, const char* owner) {
    return groupLines({{0, type}, {5, handle}, {330, owner}, {100, "AcDbEntity"}, {8, "0"}});
  };
  // The MTEXT is the text of a multi-line attribute; the polyline has no 66.
  const std::string reference = record("INSERT", "100", "1F") +
                                groupLines({{66, "1"}, {2, "SYM"}}) +
                                record("ATTRIB", "101", "100") + record("MTEXT", "102", "101") +
                                record("ATTRIB", "103", "100") + record("SEQEND", "104", "100");
  const std::string polyline = record("POLYLINE", "110", "1F") + record("VERTEX", "111", "110") +
                               groupLines({{102, "{ACAD_XDICTIONARY"}, {360, "120"}, {102, "}"}}) +
                               record("SEQEND", "112", "110");
  const std::string objects = groupLines({{0, "ENDSEC"}, {0, "SECTION"}, {2, "OBJECTS"}}) +
                              record("DICTIONARY", "120", "111") +
                              groupLines({{350, "121"}, {350, "122"}}) +
                              record("XRECORD", "121", "120") + record("XRECORD", "122", "0");
  const std::string bytes = TestDrawing{1015, reference + polyline + objects}.bytes();
  OpenDrawing drawing(bytes);
  for (const int handle : {0x100, 0x110}) {
    auto* entity = opened<AcDbEntity>(drawing.find(handle), AcDb::kForWrite);
    EXPECT_EQ(entity->erase(), Acad::eOk);
    entity->close();
  }
  const std::string left =
      groupLines({{0, "ENDSEC"}, {0, "SECTION"}, {2, "OBJECTS"}}) + record("XRECORD", "122", "0");
  EXPECT_EQ(drawing.bytes(), TestDrawing({1015, left}).bytes());
  drawing->journal().undo(1);
  EXPECT_EQ(drawing.bytes(), bytes);
}

TEST_P(BothReleases, LayersAndStyles) {
  OpenDrawing drawing(attributeAndTexts(GetParam()));
  AcDbLayerTable* layers = nullptr;
  ASSERT_EQ(drawing->getSymbolTable(layers, AcDb::kForWrite), Acad::eOk);
  std::wstring states;
  AcDbLayerTableIterator* at = nullptr;
  ASSERT_EQ(layers->newIterator(at), Acad::eOk);
  for (; !at->done(); at->step()) {
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(at->getRecord(layer), Acad::eOk);
    const ACHAR* name = nullptr;
    layer->getName(name);
    states += name;
    if (layer->isOff()) states += L" off";
    if (layer->isFrozen()) states += L" frozen";
    if (layer->isLocked()) states += L" locked";
    states += L",";
    layer->close();
  }
  delete at;
  EXPECT_EQ(states, L"0,WIRES,FRAME locked,HIDDEN frozen,OFF off,");

  auto* added = new AcDbLayerTableRecord;
  EXPECT_EQ(added->setName(L"wires"), Acad::eOk);
  EXPECT_EQ(layers->add(added), Acad::eDuplicateKey);
  EXPECT_EQ(added->setName(L"NEW"), Acad::eOk);
  EXPECT_EQ(layers->add(added), Acad::eOk);
  EXPECT_EQ(added->setIsFrozen(true), Acad::eOk);
  EXPECT_EQ(added->objectId().handle() == 0, GetParam() == 1009) << "R12 tables have no handles";
  added->close();
  EXPECT_TRUE(layers->has(L"new"));
  auto* current = opened<AcDbLayerTableRecord>(drawing->clayer(), AcDb::kForWrite);
  EXPECT_EQ(current->setIsFrozen(true), Acad::eInvalidInput);
  current->close();
  layers->close();

  AcDbTextStyleTable* styles = nullptr;
  AcDbTextStyleTableRecord* style = nullptr;
  ASSERT_EQ(drawing->getSymbolTable(styles, AcDb::kForRead), Acad::eOk);
  ASSERT_EQ(styles->getAt(L"tate", style, AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(style->isVertical());
  style->close();
  ASSERT_EQ(styles->getAt(L"FIXED", style, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(style->textSize(), 3);
  EXPECT_EQ(style->xScale(), 0.8);
  style->close();
  AcDbObjectId none;
  EXPECT_EQ(styles->getAt(L"NONE", none), Acad::eKeyNotFound);
  styles->close();
}

TEST_P(BothReleases, HeaderVariablesAndSpaces) {
  OpenDrawing drawing(attributeAndTexts(GetParam()));
  EXPECT_EQ(drawing->dimscale(), 2);
  EXPECT_EQ(drawing->currentSpaceId(), drawing->modelSpaceId());
  AcDbBlockTable* blocks = nullptr;
  ASSERT_EQ(drawing->getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
  AcDbObjectId space;
  EXPECT_EQ(blocks->getAt(L"*MODEL_SPACE", space), Acad::eOk);
  EXPECT_EQ(space, drawing->modelSpaceId());
  blocks->close();
  EXPECT_EQ(std::get<std::wstring>(*drawing->headerValue("$CLAYER")), L"0");
  EXPECT_EQ(drawing->setHeaderValue("$CLAYER", L"WIRES"), Acad::eOk);
  EXPECT_EQ(drawing->setHeaderValue("$TEXTSIZE", 3.5), Acad::eOk);
  EXPECT_EQ(drawing->textsize(), 3.5);
  EXPECT_FALSE(drawing->headerValue("$NONE").has_value());
}

TEST(BlockTable, LacksAModelSpaceThatTheFileLacks) {
  OpenDrawing drawing(groupLines({{0, "SECTION"},
                                  {2, "HEADER"},
                                  {9, "$ACADVER"},
                                  {1, "AC1015"},
                                  {0, "ENDSEC"},
                                  {0, "SECTION"},
                                  {2, "ENTITIES"},
                                  {0, "ENDSEC"},
                                  {0, "EOF"}}));
  AcDbBlockTable* blocks = nullptr;
  ASSERT_EQ(drawing->getSymbolTable(blocks, AcDb::kForRead), Acad::eOk);
  EXPECT_FALSE(blocks->has(L"*Model_Space"));
  blocks->close();
}

}  // namespace
}  // namespace kovra::arx::test
