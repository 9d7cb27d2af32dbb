// Copies of entities with all that they own.
#include <gtest/gtest.h>

#include "platform/arx/database/id_mapping.h"
#include "platform/arx/database/journal.h"
#include "platform/arx/database/object_table.h"
#include "platform/dxf/record_store.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

constexpr int kR2000 = 1015;
const Group kOwner{330, "1F"};

/// A text at its handle in model space, with what follows the common groups.
std::string ownedText(const std::string& handle, const std::string& value,
                      const std::vector<Group>& behindHandle, const std::vector<Group>& xdata) {
  std::vector<Group> groups = {{0, "TEXT"}, {5, handle}};
  groups.insert(groups.end(), behindHandle.begin(), behindHandle.end());
  for (const Group& group : std::vector<Group>{kOwner,
                                               {100, "AcDbEntity"},
                                               {8, "FRAME"},
                                               {100, "AcDbText"},
                                               {10, "1.50"},
                                               {20, "2.0"},
                                               {30, "0.0"},
                                               {40, "2.5"},
                                               {1, value},
                                               {100, "AcDbText"}})
    groups.push_back(group);
  groups.insert(groups.end(), xdata.begin(), xdata.end());
  return groupLines(groups);
}

/// Two texts; the first has a dictionary with a record that names the second, a reactor that stays,
/// and its own handle in its extended data. The second has a dictionary that isn't its own.
std::string sheet() {
  const std::string texts =
      ownedText("200", "A",
                {{102, "{ACAD_REACTORS"},
                 {330, "30"},
                 {102, "}"},
                 {102, "{ACAD_XDICTIONARY"},
                 {360, "300"},
                 {102, "}"}},
                {{1001, "KOVRA"}, {1005, "200"}, {1040, "0.50"}}) +
      ownedText("201", "B", {{102, "{ACAD_XDICTIONARY"}, {360, "300"}, {102, "}"}}, {});
  std::string bytes =
      TestDrawing{kR2000, texts + textEntity(TextKind::kAttribute, kR2000, 0x211, {})}.bytes();
  bytes.resize(bytes.size() - groupLines({{0, "EOF"}}).size());
  return bytes + groupLines({{0, "SECTION"},
                             {2, "OBJECTS"},
                             {0, "DICTIONARY"},
                             {5, "300"},
                             {330, "200"},
                             {100, "AcDbDictionary"},
                             {280, "1"},
                             {3, "NOTES"},
                             {360, "301"},
                             {0, "XRECORD"},
                             {5, "301"},
                             {330, "300"},
                             {100, "AcDbXrecord"},
                             {330, "201"},
                             {320, "201"},
                             {0, "ENDSEC"},
                             {0, "EOF"}});
}

class DeepClone : public ::testing::Test {
 protected:
  Acad::ErrorStatus clone(const AcDbObjectIdArray& ids, int owner = 0x1f) {
    return drawing->deepCloneObjects(ids, drawing.find(owner), mapping);
  }

  /// "key>value" in hexadecimal.
  std::vector<std::string> pairs() const {
    std::vector<std::string> all;
    AcDbIdMappingIter walk(mapping);
    AcDbIdPair pair;
    for (walk.start(); walk.getMap(pair); walk.next()) {
      EXPECT_TRUE(pair.isCloned() && pair.isPrimary());
      char text[40];
      std::snprintf(text, sizeof text, "%llX>%llX",
                    static_cast<unsigned long long>(pair.key().handle()),
                    static_cast<unsigned long long>(pair.value().handle()));
      all.push_back(text);
    }
    return all;
  }

  const std::string before = sheet();
  OpenDrawing drawing{before};
  AcDbIdMapping mapping;
};

TEST_F(DeepClone, TakesAlongWhatIsOwnedAndLeadsReferencesToTheCopies) {
  drawing->journal().beginStep(L"COPY");
  ASSERT_EQ(clone({drawing.find(0x201), drawing.find(0x200), drawing.find(0x201)}), Acad::eOk);
  EXPECT_EQ(pairs(), (std::vector<std::string>{"201>F000", "200>F001"}));
  const std::string after = drawing.bytes();
  const std::string first = ownedText("F000", "B", {}, {});
  const std::string second = ownedText("F001", "A",
                                       {{102, "{ACAD_REACTORS"},
                                        {330, "30"},
                                        {102, "}"},
                                        {102, "{ACAD_XDICTIONARY"},
                                        {360, "F002"},
                                        {102, "}"}},
                                       {{1001, "KOVRA"}, {1005, "F001"}, {1040, "0.50"}});
  EXPECT_NE(after.find(first + second + groupLines({{0, "ENDSEC"}})), std::string::npos) << after;
  EXPECT_NE(after.find(groupLines({{3, "NOTES"},
                                   {360, "F003"},
                                   {0, "XRECORD"},
                                   {5, "F003"},
                                   {330, "F002"},
                                   {100, "AcDbXrecord"},
                                   {330, "F000"},
                                   {320, "201"},
                                   {0, "ENDSEC"}})),
            std::string::npos)
      << after;
  // Back, again, and erased one by one.
  drawing->journal().undo(1);
  EXPECT_EQ(drawing.bytes(), before);
  drawing->journal().redo();
  EXPECT_EQ(drawing.bytes(), after);
  AcDbIdMappingIter walk(mapping);
  for (AcDbIdPair pair; walk.getMap(pair); walk.next()) {
    AcDbObject* copy = nullptr;
    drawing->objects().eraseRecord(pair.value().index(), true);
    EXPECT_EQ(acdbOpenAcDbObject(copy, pair.value(), AcDb::kForRead), Acad::eWasErased);
  }
  EXPECT_EQ(drawing.bytes(), before);
}

TEST_F(DeepClone, CopiesTheParts) {
  ASSERT_EQ(clone({drawing.find(0x210)}, 0x1b), Acad::eOk);
  EXPECT_EQ(pairs(), (std::vector<std::string>{"210>F000"}));
  const AcDbObjectId attribute = drawing.find(0xf001);
  EXPECT_EQ(attribute.ownerId(), drawing.find(0xf000));
  EXPECT_EQ(attribute.ownerId().ownerId(), drawing.find(0x1b));
  AcDbIdPair pair(drawing.find(0x211), {}, false);
  EXPECT_FALSE(mapping.compute(pair));
}

TEST_F(DeepClone, CopiesAllOrNothing) {
  const struct {
    int entity;
    int owner;
    Acad::ErrorStatus status;
  } cases[] = {{0x211, 0x1f, Acad::eInvalidOwnerObject},
               {0x300, 0x1f, Acad::eInvalidInput},
               {0x200, 0x201, Acad::eInvalidOwnerObject}};
  for (const auto& each : cases)
    EXPECT_EQ(clone({drawing.find(0x200), drawing.find(each.entity)}, each.owner), each.status);
  EXPECT_EQ(clone({drawing.find(0x200), AcDbObjectId::kNull}), Acad::eNullObjectId);
  drawing->objects().eraseRecord(drawing.find(0x210).index(), true);
  EXPECT_EQ(clone({drawing.find(0x200), drawing.find(0x210)}), Acad::eWasErased);
  drawing->objects().eraseRecord(drawing.find(0x210).index(), false);
  EXPECT_EQ(drawing.bytes(), before);
  EXPECT_TRUE(pairs().empty());
}

}  // namespace
}  // namespace kovra::arx::test
