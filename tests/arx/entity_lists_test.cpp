// Entities as lists: what is given, what may be changed and made.
#include "platform/arx/lists/entity_lists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>
#include <memory>
#include <numbers>

#include "platform/arx/entities/text.h"
#include "platform/dxf/structure.h"
#include "tests/arx/test_drawing.h"

namespace kovra::arx::test {
namespace {

constexpr int kHandle = 0x101;

struct ReleaseList {
  void operator()(resbuf* list) const { acutRelRb(list); }
};
using List = std::unique_ptr<resbuf, ReleaseList>;

resbuf* element(const List& list, int code) {
  resbuf* at = list.get();
  while (at != nullptr && at->restype != code) at = at->rbnext;
  return at;
}

List listOf(AcDbObjectId id) {
  ads_name name;
  EXPECT_EQ(acdbGetAdsName(name, id), Acad::eOk);
  return List(acdbEntGet(name));
}

void append(const List& list, resbuf* tail) {
  resbuf* at = list.get();
  while (at->rbnext != nullptr) at = at->rbnext;
  at->rbnext = tail;
}

void setText(resbuf* at, const wchar_t* text) {
  acutDelString(at->resval.rstring);
  acutNewString(text, at->resval.rstring);
}

class ListReleases : public testing::TestWithParam<int> {
 protected:
  std::string bytes_ = TestDrawing{GetParam(), textEntity(TextKind::kText, GetParam(), kHandle,
                                                          {{50, "90.0"}, {7, "TATE"}})}
                           .bytes();
  OpenDrawing drawing_{bytes_};
  AcDbObjectId id_ = drawing_.find(kHandle);
};
INSTANTIATE_TEST_SUITE_P(Releases, ListReleases, testing::Values(1009, 1015));

TEST_P(ListReleases, GetGivesTheGroupsWithAnglesInRadians) {
  const List list = listOf(id_);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->restype, -1);
  EXPECT_STREQ(list->rbnext->resval.rstring, L"TEXT");
  EXPECT_STREQ(element(list, 5)->resval.rstring, L"101");
  AcDbObjectId owner;
  EXPECT_EQ(acdbGetObjectId(owner, element(list, 330)->resval.rlname), Acad::eOk);
  EXPECT_EQ(owner, drawing_->modelSpaceId());
  EXPECT_EQ(element(list, 10)->resval.rpoint[1], 50);
  EXPECT_EQ(element(list, 20), nullptr);
  EXPECT_DOUBLE_EQ(element(list, 50)->resval.rreal, std::numbers::pi / 2);
  EXPECT_EQ(element(list, 100) != nullptr, GetParam() > 1009);
}

TEST_P(ListReleases, AnUnchangedListChangesNothing) {
  EXPECT_EQ(acdbEntMod(listOf(id_).get()), RTNORM);
  EXPECT_EQ(drawing_.bytes(), bytes_);
}

TEST_P(ListReleases, ModChangesWhatDiffers) {
  List list = listOf(id_);
  element(list, 40)->resval.rreal = 5;
  element(list, 50)->resval.rreal = std::numbers::pi;
  setText(element(list, 8), L"off");
  setText(element(list, 7), L"fixed");
  append(list, acutBuildList(41, 0.8, 72, 0, 0));
  EXPECT_EQ(acdbEntMod(list.get()), RTNORM);
  std::vector<std::string> diff = groupDiff(bytes_, drawing_.bytes());
  std::sort(diff.begin(), diff.end());
  EXPECT_EQ(diff, (std::vector<std::string>{"+40=5.0", "+41=0.8", "+50=180.0", "+7=FIXED", "+8=OFF",
                                            "-40=2.5", "-50=90.0", "-7=TATE", "-8=WIRES"}));
}

TEST_P(ListReleases, ModMakesAMissingLayerAndMovesAnAlignedText) {
  List list = listOf(id_);
  setText(element(list, 8), L"New Layer");
  element(list, 50)->resval.rreal = 0;
  setText(element(list, 7), L"STANDARD");
  const ads_point anchor = {100, 50, 0};
  append(list, acutBuildList(72, 2, 73, 0, 11, anchor, 0));
  EXPECT_EQ(acdbEntMod(list.get()), RTNORM);
  AcDbText* text = nullptr;
  ASSERT_EQ(acdbOpenObject(text, id_, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(text->position(), AcGePoint3d(100 - 2 * 0.625 * 2.5, 50, 0));
  EXPECT_STREQ(text->layerName(), L"New Layer");
  text->close();
  const List layer(acdbTblSearch(L"layer", L"new LAYER", 0));
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(element(layer, 62)->resval.rint, 7);
}

TEST_P(ListReleases, ModRefuses) {
  struct {
    const char* what;
    int code;
    double number;
    const wchar_t* text;
  } const cases[] = {
      {"empty layer", 8, 0, L""},       {"empty style", 7, 0, L""},
      {"missing style", 7, 0, L"NONE"}, {"bad layer name", 8, 0, L"a|b"},
      {"height 0", 40, 0, nullptr},     {"height below 0", 40, -1, nullptr},
      {"another type", 0, 0, L"LINE"},
  };
  // A shape file, an entry of the style table without a name.
  drawing_->structure().addStyle(L"", 0, 1, L"ltypeshp.shx");
  const std::string bytes = drawing_.bytes();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const List list = listOf(id_);
    if (c.text != nullptr) {
      setText(element(list, c.code), c.text);
    } else {
      element(list, c.code)->resval.rreal = c.number;
    }
    element(list, 10)->resval.rpoint[0] = 7;
    EXPECT_EQ(acdbEntMod(list.get()), RTREJ);
    EXPECT_EQ(drawing_.bytes(), bytes);
  }
  EXPECT_EQ(acdbEntMod(nullptr), RTERROR);
  const List current = listOf(drawing_->clayer());
  element(current, 70)->resval.rint = 1;
  EXPECT_EQ(acdbEntMod(current.get()), RTREJ);
  EXPECT_EQ(drawing_.bytes(), bytes);
}

/// The groups of the newest entity, without its handle and owner.
std::string newest(const OpenDrawing& drawing) {
  const std::string bytes = drawing.bytes();
  const std::size_t from = bytes.rfind("  0\nTEXT\n");
  const std::string record = bytes.substr(from, bytes.find("  0\n", from + 4) - from);
  std::string result;
  for (const std::string& line : groupDiff("", record))
    if (!line.starts_with("+5=") && !line.starts_with("+330=")) result += line.substr(1) + " ";
  return result;
}

TEST_P(ListReleases, MakeTakesGroupsInAnyOrder) {
  const ads_point point = {1, 2, 0};
  const List list(acutBuildList(RTDXF0, L"TEXT", 100, L"AcDbEntity", 8, L"wires", 10, point, 40,
                                2.0, 41, 1.0, 1, L"X001", 50, std::numbers::pi / 2, 62, 256, 7,
                                L"standard", 71, 0, 72, 0, 11, point, 100, L"AcDbText", 73, 0,
                                RTNONE));
  ASSERT_EQ(acdbEntMake(list.get()), RTNORM);
  const bool marked = GetParam() > 1009;
  const auto marker = [&](const char* name) {
    return marked ? std::string("100=") + name + " " : std::string();
  };
  EXPECT_EQ(newest(drawing_),
            "0=TEXT " + marker("AcDbEntity") + "8=WIRES 62=256 " + marker("AcDbText") +
                "10=1.0 20=2.0 30=0.0 40=2.0 1=X001 50=90.0 41=1.0 7=Standard 71=0 72=0 "
                "11=1.0 21=2.0 31=0.0 " +
                marker("AcDbText") + "73=0 ");
  ads_name last;
  ASSERT_EQ(acdbEntLast(last), RTNORM);
  AcDbObjectId id;
  acdbGetObjectId(id, last);
  EXPECT_EQ(id.handle(), 0xF000U);
  EXPECT_EQ(acdbEntDel(last), RTNORM);
  EXPECT_EQ(acdbEntLast(last), RTNORM);
  acdbGetObjectId(id, last);
  EXPECT_EQ(id.handle(), static_cast<Adesk::UInt64>(kHandle));
}

TEST_P(ListReleases, MakeComputesThePositionAndMakesALayer) {
  const ads_point point = {10, 0, 0};
  const List list(acutBuildList(RTDXF0, L"text", 72, 2, 11, point, 10, point, 40, 2.0, 1, L"AB", 8,
                                L"FRESH", RTNONE));
  ASSERT_EQ(acdbEntMake(list.get()), RTNORM);
  const std::string made = newest(drawing_);
  EXPECT_NE(made.find("8=FRESH "), std::string::npos);
  EXPECT_NE(made.find("10=7.5 20=0.0 "), std::string::npos) << made;
  EXPECT_EQ(made.find("41="), std::string::npos);
  EXPECT_EQ(made.find("62="), std::string::npos);
  EXPECT_NE(List(acdbTblSearch(L"LAYER", L"fresh", 0)), nullptr);
}

TEST_P(ListReleases, MakeRefuses) {
  const ads_point point = {1, 2, 0};
  const std::string before = drawing_.bytes();
  List lists[] = {
      List(acutBuildList(RTDXF0, L"TEXT", 10, point, 40, 0.0, 1, L"A", 8, L"NEW1", RTNONE)),
      List(acutBuildList(RTDXF0, L"TEXT", 10, point, 1, L"A", RTNONE)),
      List(acutBuildList(RTDXF0, L"TEXT", 40, 2.0, 1, L"A", RTNONE)),
      List(acutBuildList(RTDXF0, L"TEXT", 10, point, 40, 2.0, 7, L"NONE", RTNONE)),
      List(acutBuildList(RTDXF0, L"TEXT", 10, point, 40, 2.0, 8, L"", RTNONE)),
      List(acutBuildList(RTDXF0, L"TEXT", 10, point, 40, 2.0, 8, L"\tA", RTNONE)),
      List(acutBuildList(RTDXF0, L"MTEXT", 10, point, 40, 0.0, 1, L"A", RTNONE)),
      List(acutBuildList(RTDXF0, L"CIRCLE", 10, point, 40, 0.0, RTNONE)),
      List(acutBuildList(RTDXF0, L"WIDGET", 10, point, RTNONE)),
      List(acutBuildList(10, point, RTNONE)),
  };
  for (const List& list : lists) EXPECT_EQ(acdbEntMake(list.get()), RTREJ);
  EXPECT_EQ(acdbEntMake(nullptr), RTREJ);
  EXPECT_EQ(drawing_.bytes(), before);
}

TEST(EntityLists, StyleStandardNeedsNoTable) {
  const OpenDrawing drawing(
      groupLines({{0, "SECTION"}, {2, "ENTITIES"}, {0, "ENDSEC"}, {0, "EOF"}}));
  const ads_point point = {1, 2, 0};
  for (const wchar_t* style : {L"STANDARD", L"", L"OTHER"}) {
    const List list(acutBuildList(RTDXF0, L"TEXT", 10, point, 40, 2.0, 1, L"A", 7, style, RTNONE));
    EXPECT_EQ(acdbEntMake(list.get()), *style == L'O' ? RTREJ : RTNORM);
  }
  EXPECT_EQ(drawing.bytes().find("STANDARD"), std::string::npos);
}

TEST_P(ListReleases, WalksEntitiesAndTables) {
  ads_name name;
  ads_name next;
  ads_name_clear(name);
  ASSERT_EQ(acdbEntNext(name, next), RTNORM);
  AcDbObjectId id;
  acdbGetObjectId(id, next);
  EXPECT_EQ(id, id_);
  EXPECT_EQ(acdbEntNext(next, name), RTERROR);
  EXPECT_EQ(acdbHandEnt(L"101", name), RTNORM);
  EXPECT_TRUE(ads_name_equal(name, next));
  EXPECT_EQ(acdbHandEnt(L"FFFF", name), RTERROR);

  std::wstring names;
  for (List entry(acdbTblNext(L"LAYER", 1)); entry != nullptr;
       entry.reset(acdbTblNext(L"LAYER", 0)))
    names += std::wstring(element(entry, 2)->resval.rstring) + L",";
  EXPECT_EQ(names, L"0,WIRES,FRAME,HIDDEN,OFF,");
  const List block(acdbTblNext(L"BLOCK", 1));
  ASSERT_NE(block, nullptr);
  EXPECT_STREQ(element(block, 2)->resval.rstring, L"SYM");
  EXPECT_EQ(List(acdbTblNext(L"BLOCK", 0)), nullptr);
  EXPECT_EQ(element(List(acdbTblSearch(L"LAYER", L"frame", 0)), 70)->resval.rint & 4, 4);
  EXPECT_EQ(acdbTblSearch(L"LAYER", L"none", 0), nullptr);
}

TEST(Lists, BuildAndRelease) {
  const ads_point point = {1, 2, 3};
  const List list(
      acutBuildList(RTSTR, L"a", RTSHORT, 7, RTREAL, 1.5, RTPOINT, point, 62, 3, RTNONE));
  EXPECT_EQ(acutCountRb(list.get()), 5);
  EXPECT_STREQ(list->resval.rstring, L"a");
  EXPECT_EQ(element(list, 62)->resval.rint, 3);
  EXPECT_EQ(element(list, RTPOINT)->resval.rpoint[2], 3);
  EXPECT_EQ(acutBuildList(RTSTR, L"a", 4999, 1, RTNONE), nullptr);
}

}  // namespace
}  // namespace kovra::arx::test
